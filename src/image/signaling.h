// Selective calling: the TTS table, the 5-tone standards, and each channel's selective-call and group-call fields.
//
//   ToneFrequencyBlock  16 little-endian frequencies in Hz. TTS: tone A and tone B of entries 1 to 8;
//                       5-tone: tones 0 to 15 of the selected standard.
//   TtsTimingBlock      4 bytes per entry, in 0.1 s: tone A duration, tone B duration, gap, group call duration.
//   SelCallCodeBlock    8 bytes per channel, a receive and a transmit 5-tone code in packed digits, d1 typed first:
//                         byte 0: Rx d4 d5    byte 1: Rx d2 d3    byte 2: group call again, Rx d1
//                         byte 3: Tx d4 d5    byte 4: Tx d2 d3    byte 5: group call, Tx d1    bytes 6, 7: kept
//   ChannelBlock        bit 2 of the flag bytes 0 and 6: selective call on; bytes 13 and 14: Rx and Tx TTS entry;
//                       byte 15: TTS group call, the value in both nibbles.
//   ResetTimeBlock      byte 1: 5-tone tone length in ms; byte 2: FiveToneStandard.
#pragma once

#include "radio_image.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace mr4500x {

enum class Direction : std::uint8_t { Rx, Tx };

inline constexpr std::size_t TtsEntryCount = 8;

// Bytes of ResetTimeBlock.
inline constexpr std::size_t ResetTimeByte = 0; // seconds, 0 for OFF
inline constexpr std::size_t ToneLengthByte = 1;
inline constexpr std::size_t StandardByte = 2;

// One row of the TTS table.
struct TtsEntry {
  std::array<std::uint16_t, 2> tones; // A and B, in Hz
  std::array<std::uint8_t, 4> times;  // durations of A and B, gap, group call duration, in 0.1 s
};

// clang-format off
inline constexpr std::array<TtsEntry, TtsEntryCount> TtsDefaultTable = {{
    {{ 400, 1141}, {5, 5, 5, 5}},
    {{ 456, 1301}, {5, 5, 5, 5}},
    {{ 520, 1483}, {5, 5, 5, 5}},
    {{ 593, 1690}, {5, 5, 5, 5}},
    {{ 675, 1927}, {5, 5, 5, 5}},
    {{ 770, 2197}, {5, 5, 5, 5}},
    {{ 878, 2504}, {5, 5, 5, 5}},
    {{1001, 2855}, {5, 5, 5, 5}},
}};

struct FiveToneRow { const char* name; std::array<std::uint16_t, 16> tones; std::uint8_t toneLength; };
inline constexpr std::array<FiveToneRow, 11> FiveToneStandardTable = {{
    //         tones of the digits 0 to 9, Hz                                   further tones, Hz                 ms
    {"ZVEI1",  {2400, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000, 2200,  2800, 810, 970, 885, 2600, 680},    70},
    {"ZVEI2",  {2400, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000, 2200,  885, 810, 740, 680, 970, 2600},     70},
    {"ZVEI3",  {2200, 970, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000,   885, 0, 0, 0, 2400, 0},             70},
    {"PZVEI",  {2400, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000, 2200,  970, 810, 2800, 885, 2600, 680},    70},
    {"DZVEI",  {2200, 970, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000,   885, 740, 2600, 885, 2400, 680},    70},
    {"PDZVEI", {2200, 970, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000,   825, 886, 2600, 856, 2400, 0},      70},
    {"CCIR1",  {1981, 1124, 1197, 1275, 1358, 1446, 1540, 1640, 1747, 1860,  2400, 930, 2247, 991, 2110, 1055}, 100},
    {"CCIR2",  {1981, 1124, 1197, 1275, 1358, 1446, 1540, 1640, 1747, 1860,  2400, 930, 2247, 991, 2110, 1055},  70},
    {"PCCIR",  {1981, 1124, 1197, 1275, 1358, 1446, 1540, 1640, 1747, 1860,  1050, 930, 2400, 991, 2110, 0},    100},
    {"EEA",    {1981, 1124, 1197, 1275, 1358, 1446, 1540, 1640, 1747, 1860,  1055, 930, 2400, 991, 2110, 2247},  40},
    {"NATEL",  {1633, 631, 697, 770, 852, 941, 1040, 1209, 1336, 1477,       1995, 571, 2205, 2437, 1805, 2694}, 70},
}};
// clang-format on

// "OFF", "TTS 3" or "5T 01234", by the on bit and SelcallMode. A code digit above 9 shows as a hexadecimal digit.
[[nodiscard]] std::string SelCallText(const RadioImage& image, std::size_t channel, Direction direction);
void ApplySelCallText(RadioImage& image, std::size_t channel, Direction direction, std::string_view text);

// "OFF", "Tone A", "Tone B" (TTS) or "OFF", "5T 1" … (5-tone). A TTS value above 2 reads as "Tone #" and its number.
// Applying the text of a value that the group-call dialog does not offer leaves the stored bytes unchanged.
[[nodiscard]] std::string GroupCallText(const RadioImage& image, std::size_t channel);
void ApplyGroupCallText(RadioImage& image, std::size_t channel, std::string_view text);

// Entry 1 to 8 of the TTS table.
[[nodiscard]] TtsEntry ReadTtsEntry(const RadioImage& image, std::size_t entry);
void WriteTtsEntry(RadioImage& image, std::size_t entry, const TtsEntry& values);

// Convert tenths of a second to a text in seconds with one decimal, and back. nullopt unless the text is a time of 0 to
// 25.5 s.
[[nodiscard]] std::string TtsTimeText(std::uint8_t tenths, char decimalSeparator);
[[nodiscard]] std::optional<std::uint8_t> TtsTime(std::string_view text, char decimalSeparator);

// Sets ToneFrequencyBlock, the tone length and the standard's number. False, with no change, outside 1 to 11.
bool ApplyStandard(RadioImage& image, int standard);

// Stores TtsDefaultTable, and sets tone length and standard to 1.
void LoadTtsDefaults(RadioImage& image);

} // namespace mr4500x
