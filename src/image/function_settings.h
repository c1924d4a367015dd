// The radio-wide settings: RadioSettingsBlock, keys, band limits and digits. The lists that show them are in
// choice_lists.h.
#pragma once

#include "block_field.h"
#include "radio_image.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace mr4500x {

// The fields of RadioSettingsBlock, in the order of RadioSettingsLayout.
// clang-format off
enum class Setting : std::uint8_t {
    BeepTone, Compander, BusyLockOn, BeepEnable, VoxSensivity, SquelchLevel, BatterySave, TxTot, SelcallMode,
    ScanMode, PriorityOn, RevertCh, PriorityCh, ToScanDelay, RestoreTime, LookBack, DigitTime, InterDigitTime, PttId,
    ConnectLength, DisconnectLength, ChannelsInUse, ManualTune, ScanSignal, BusyLockKind, AniLength,
};
// clang-format on

// Bits without a field keep their value, except bit 7 of byte 1 and bit 5 of byte 14, which an encode clears.
// clang-format off
inline constexpr std::array<BlockField, 26> RadioSettingsLayout = {{
    //byte mask shift    field              stored value
    { 0, 0x80, 7},    // BeepTone           0 OFF, 1 ON
    { 0, 0x40, 6},    // Compander          0 OFF, 1 ON
    { 0, 0x20, 5},    // BusyLockOn         1 active; its kind is BusyLockKind
    { 0, 0x10, 4},    // BeepEnable         0 OFF, 1 ON
    { 0, 0x0C, 2},    // VoxSensivity       0 OFF, 1 to 3 level (the product's spelling)
    { 0, 0x03, 0},    // SquelchLevel       1 to 3
    { 1, 0x70, 4},    // BatterySave        0 OFF, n = 1 to 7: n x 5 s
    { 1, 0x0F, 0},    // TxTot              0 OFF, n = 1 to 10: n x 30 s
    { 2, 0x80, 7},    // SelcallMode        1 TTS, 0 5-tone
    { 3, 0x80, 7},    // ScanMode           0 CO, 1 TO
    { 3, 0x40, 6},    // PriorityOn         1 a priority channel is set
    { 3, 0x30, 4},    // RevertCh           0 current, 1 last stop, 2 priority channel
    { 3, 0x0F, 0},    // PriorityCh         channel - 1; 0 without PriorityOn
    { 4, 0xFF, 0},    // ToScanDelay        0.1 s: 5, 10 … 100
    { 5, 0xFF, 0},    // RestoreTime        0.1 s: 5, 10 … 100
    { 6, 0xFF, 0},    // LookBack           0.1 s: 3 to 50
    { 7, 0xFF, 0},    // DigitTime          10 ms: 5 to 20
    { 8, 0xFF, 0},    // InterDigitTime     10 ms: 5 to 20
    { 9, 0xC0, 6},    // PttId              0 OFF, 1 Connect ID, 2 Disconnect ID, 3 both
    {10, 0x1F, 0},    // ConnectLength      digits in PttIdBlock bytes 0-7, 0 to 16
    {11, 0x1F, 0},    // DisconnectLength   digits in PttIdBlock bytes 8-15, 0 to 16
    {12, 0xFF, 0},    // ChannelsInUse      0 to 16
    {13, 0x80, 7},    // ManualTune         0 Enable, 1 Disable
    {14, 0x80, 7},    // ScanSignal         1 checked
    {14, 0x40, 6},    // BusyLockKind       0 Signal, 1 Carrier; 0 while the lock is off
    {14, 0x1F, 0},    // AniLength          digits in EmergencyAniBlock, 0 to 16
}};
// clang-format on
static_assert(FieldsAreSound(RadioSettingsLayout, 16));
static_assert(RadioSettingsLayout.size() == static_cast<std::size_t>(Setting::AniLength) + 1);

inline constexpr std::size_t ChannelsInUseByte = 12; // in RadioSettingsBlock

// The bytes of RadioSettingsBlock that an encode rebuilds from 0, including their bits without a field.
inline constexpr std::array<std::size_t, 4> RebuiltSettingsBytes = {0, 1, 3, 14};

constexpr BlockField FieldOf(Setting setting) {
  return RadioSettingsLayout[static_cast<std::size_t>(setting)];
}
constexpr int ReadSetting(const RadioImage& image, Setting setting) {
  return ReadField(image.RadioSettingsBlock, FieldOf(setting));
}
constexpr void WriteSetting(RadioImage& image, Setting setting, int value) {
  WriteField(image.RadioSettingsBlock, FieldOf(setting), static_cast<unsigned>(value));
}

constexpr bool IsTtsMode(const RadioImage& image) {
  return ReadSetting(image, Setting::SelcallMode) == 1;
}

// KeyProgramBlock: byte k belongs to key k (Short A, Long A, Short B, Long B, Short C, Long C).
inline constexpr std::size_t KeyCount = 6;
inline constexpr std::uint8_t KeyAssignedBit = 0x80;
inline constexpr std::uint8_t KeySpecialBit = 0x40; // the key's special function, on the keys that have one
inline constexpr std::uint8_t KeyCodeMask = 0x0F;   // 3 Scan … 10 GroupCall
inline constexpr std::uint8_t TalkAroundKey = 0x86;
inline constexpr std::uint8_t ReverseKey = 0x87;
inline constexpr std::uint8_t EmergencyAlertKey = 0xC1;       // Short A
inline constexpr std::uint8_t CancelEmergencyAlertKey = 0xC2; // Long A

// BandBlock: the limits in whole MHz, 16-bit little-endian at bytes 0 and 2.
[[nodiscard]] int LowerBandLimit(std::span<const std::uint8_t, 8> band);
[[nodiscard]] int UpperBandLimit(std::span<const std::uint8_t, 8> band);
void SetLowerBandLimit(std::span<std::uint8_t, 8> band, int megahertz);
void SetUpperBandLimit(std::span<std::uint8_t, 8> band, int megahertz);
[[nodiscard]] std::string BandText(std::span<const std::uint8_t, 8> band); // "440 to 470 MHz"
// 00 30 in bytes 4 and 5, as in every radio of the series.
void SetSeriesMark(std::span<std::uint8_t, 8> band);

// The bytes of the two IDs. The image may be constant.
constexpr auto ConnectIdDigits(auto& image) {
  return std::span(image.PttIdBlock).template first<8>();
}
constexpr auto DisconnectIdDigits(auto& image) {
  return std::span(image.PttIdBlock).template last<8>();
}

// DTMF digits, two to a byte, the first in the low nibble: "0" is stored as 10, "*" as 11, "#" as 12, "A" to "C" as
// 13 to 15, "D" as 0. A length above 16 reads as 16.
inline constexpr int MostDigits = 16;
[[nodiscard]] std::string UnpackDigits(std::span<const std::uint8_t, 8> area, int length);
// Writes at most 16 characters and leaves the bytes after them unchanged. A character that is not a DTMF symbol repeats
// the previous code, or is 0 at the start.
void PackDigits(std::string_view text, std::span<std::uint8_t, 8> area);

// The identity number or firmware version in UTF-8, read as Latin-1. Zero bytes are left out, other control codes
// become ".".
[[nodiscard]] std::string CharactersText(std::span<const std::uint8_t> bytes);
// Trims blanks at both ends.
[[nodiscard]] std::string IdentityNumber(const RadioImage& image);
[[nodiscard]] std::string FirmwareVersion(const RadioImage& image);

} // namespace mr4500x
