#include "signaling.h"

#include "block_field.h"
#include "cell_items.h"
#include "decimal.h"
#include "function_settings.h"
#include "text.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::size_t CodeBytes = 8; // per channel in SelCallCodeBlock
constexpr std::size_t CodeDigits = 5;
constexpr std::size_t TtsGroupByte = 15;
constexpr std::string_view TtsPrefix = "TTS ";
constexpr std::string_view FiveTonePrefix = "5T ";
constexpr std::string_view UnlistedGroup = "Tone #";

// One direction of a channel: its bytes in the channel record and its code digits, d1 first.
struct SelCallLayout {
  BlockField on;
  std::size_t ttsEntry;
  std::array<BlockField, CodeDigits> digits;
};
// clang-format off
constexpr std::array<SelCallLayout, 2> SelCallLayouts = {{
    //on              entry  d1            d2            d3            d4            d5
    {{0, 0x04, 2},    13, {{{2, 0x0F, 0}, {1, 0xF0, 4}, {1, 0x0F, 0}, {0, 0xF0, 4}, {0, 0x0F, 0}}}}, // Rx
    {{6, 0x04, 2},    14, {{{5, 0x0F, 0}, {4, 0xF0, 4}, {4, 0x0F, 0}, {3, 0xF0, 4}, {3, 0x0F, 0}}}}, // Tx
}};
constexpr BlockField FiveToneGroup =                                    {5, 0xF0, 4};
constexpr BlockField FiveToneGroupCopy =                                {2, 0xF0, 4};
// clang-format on

const SelCallLayout& LayoutOf(Direction direction) {
  return SelCallLayouts[static_cast<std::size_t>(direction)];
}

// The image may be constant.
auto CodeOf(auto& image, std::size_t channel) {
  return std::span(image.SelCallCodeBlock.bytes).subspan(channel * CodeBytes, CodeBytes);
}

void WriteFrequency(RadioImage& image, std::size_t position, std::uint16_t hertz) {
  image.ToneFrequencyBlock[2 * position] = static_cast<std::uint8_t>(hertz & 0xFF);
  image.ToneFrequencyBlock[2 * position + 1] = static_cast<std::uint8_t>(hertz >> 8);
}

std::uint16_t ReadFrequency(const RadioImage& image, std::size_t position) {
  return static_cast<std::uint16_t>(image.ToneFrequencyBlock[2 * position] +
                                    256 * image.ToneFrequencyBlock[2 * position + 1]);
}

auto TimesOf(auto& image, std::size_t entry) {
  return std::span(image.TtsTimingBlock.bytes).subspan(4 * (entry - 1), 4);
}

} // namespace

std::string SelCallText(const RadioImage& image, std::size_t channel, Direction direction) {
  const SelCallLayout& place = LayoutOf(direction);
  const auto record = image.ChannelBlock.Row(channel);
  if (ReadField(record, place.on) == 0) return "OFF";
  if (IsTtsMode(image)) return std::string(TtsPrefix) + std::to_string(record[place.ttsEntry]);
  std::string text(FiveTonePrefix);
  for (const BlockField& digit : place.digits)
    text += HexDigit(ReadField(CodeOf(image, channel), digit));
  return text;
}

void ApplySelCallText(RadioImage& image, std::size_t channel, Direction direction, std::string_view text) {
  const SelCallLayout& place = LayoutOf(direction);
  const auto record = image.ChannelBlock.Row(channel);
  const auto turnOn = [&](bool on, std::uint8_t ttsEntry) {
    WriteField(record, place.on, on ? 1 : 0);
    record[place.ttsEntry] = ttsEntry;
  };
  if (text == "OFF") {
    turnOn(false, 0);
  } else if (IsTtsMode(image)) {
    if (const auto entry = ByteAfter(text, TtsPrefix)) turnOn(true, *entry);
  } else if (const auto digits = HexDigitsAfter<CodeDigits>(text, FiveTonePrefix)) {
    turnOn(true, 0);
    for (std::size_t i = 0; i < CodeDigits; ++i)
      WriteField(CodeOf(image, channel), place.digits[i], (*digits)[i]);
  }
}

std::string GroupCallText(const RadioImage& image, std::size_t channel) {
  if (!IsTtsMode(image)) {
    const int group = ReadField(CodeOf(image, channel), FiveToneGroup);
    return group == 0 ? "OFF" : std::string(FiveTonePrefix) + std::to_string(group);
  }
  const auto group = static_cast<std::size_t>(image.ChannelBlock(channel, TtsGroupByte) & 0x0F);
  if (group < TtsGroupItems.size()) return std::string(TtsGroupItems[group]);
  return std::string(UnlistedGroup) + std::to_string(group);
}

void ApplyGroupCallText(RadioImage& image, std::size_t channel, std::string_view text) {
  if (IsTtsMode(image)) {
    std::uint8_t& stored = image.ChannelBlock(channel, TtsGroupByte);
    const auto* const item = std::find(TtsGroupItems.begin(), TtsGroupItems.end(), text);
    if (item != TtsGroupItems.end())
      stored = static_cast<std::uint8_t>((item - TtsGroupItems.begin()) * 0x11); // in both nibbles
    else if (const auto group = ByteAfter(text, UnlistedGroup);
             group && *group >= TtsGroupItems.size() && *group <= 0x0F && (stored & 0x0F) != *group)
      stored = static_cast<std::uint8_t>(*group * 0x11);
    return;
  }
  const auto group = text == "OFF" ? std::optional<std::uint8_t>(0) : ByteAfter(text, FiveTonePrefix);
  const std::span<std::uint8_t> code = CodeOf(image, channel);
  if (!group || *group > 0x0F || (*group == 0 && text != "OFF")) return;
  if (*group >= FiveToneGroupItems.size() && ReadField(code, FiveToneGroup) == *group) return;
  WriteField(code, FiveToneGroup, *group);
  WriteField(code, FiveToneGroupCopy, *group);
}

TtsEntry ReadTtsEntry(const RadioImage& image, std::size_t entry) {
  const std::size_t tone = 2 * (entry - 1);
  TtsEntry read{{ReadFrequency(image, tone), ReadFrequency(image, tone + 1)}, {}};
  std::ranges::copy(TimesOf(image, entry), read.times.begin());
  return read;
}

void WriteTtsEntry(RadioImage& image, std::size_t entry, const TtsEntry& values) {
  for (std::size_t i = 0; i < values.tones.size(); ++i)
    WriteFrequency(image, 2 * (entry - 1) + i, values.tones[i]);
  std::ranges::copy(values.times, TimesOf(image, entry).begin());
}

std::string TtsTimeText(std::uint8_t tenths, char decimalSeparator) {
  return FormatDecimal(tenths, 1, 1, decimalSeparator);
}

std::optional<std::uint8_t> TtsTime(std::string_view text, char decimalSeparator) {
  const std::optional<Decimal> seconds = ParseDecimal(text, decimalSeparator);
  const std::int64_t tenths = seconds ? CountOfUnits(*seconds, 1, 1) : -1;
  return tenths >= 0 && tenths <= 0xFF ? std::optional(static_cast<std::uint8_t>(tenths)) : std::nullopt;
}

bool ApplyStandard(RadioImage& image, int standard) {
  if (standard < 1 || standard > static_cast<int>(FiveToneStandardTable.size())) return false;
  const FiveToneRow& row = FiveToneStandardTable[static_cast<std::size_t>(standard - 1)];
  for (std::size_t tone = 0; tone < row.tones.size(); ++tone)
    WriteFrequency(image, tone, row.tones[tone]);
  image.ResetTimeBlock[ToneLengthByte] = row.toneLength;
  image.ResetTimeBlock[StandardByte] = static_cast<std::uint8_t>(standard);
  return true;
}

void LoadTtsDefaults(RadioImage& image) {
  for (std::size_t entry = 1; entry <= TtsEntryCount; ++entry)
    WriteTtsEntry(image, entry, TtsDefaultTable[entry - 1]);
  image.ResetTimeBlock[ToneLengthByte] = 1;
  image.ResetTimeBlock[StandardByte] = 1;
}

} // namespace mr4500x
