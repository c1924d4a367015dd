// The conversions of the selective-call fields.
#include "signaling.h"

#include "block_field.h"
#include "decimal.h"
#include "function_settings.h"
#include "hex_digit.h"

namespace mr4500x {
namespace {

constexpr std::size_t CodeBytes = 8; // a channel's share of SelCallCodeBlock
constexpr std::size_t CodeDigits = 5;
constexpr std::size_t TtsGroupByte = 15;
constexpr std::string_view UnlistedGroup = "Tone #";

// One direction of a channel: its bytes in the channel record and its code digits, d1 first.
struct SelCallPlace {
  BlockField on;
  std::size_t ttsEntry;
  std::array<BlockField, CodeDigits> digits;
};
// clang-format off
constexpr std::array<SelCallPlace, 2> SelCallPlaces = {{
    //on              entry  d1            d2            d3            d4            d5
    {{0, 0x04, 2},    13, {{{2, 0x0F, 0}, {1, 0xF0, 4}, {1, 0x0F, 0}, {0, 0xF0, 4}, {0, 0x0F, 0}}}}, // Rx
    {{6, 0x04, 2},    14, {{{5, 0x0F, 0}, {4, 0xF0, 4}, {4, 0x0F, 0}, {3, 0xF0, 4}, {3, 0x0F, 0}}}}, // Tx
}};
constexpr BlockField FiveToneGroup =                                    {5, 0xF0, 4};
constexpr BlockField FiveToneGroupCopy =                                {2, 0xF0, 4};
constexpr int FiveToneGroups = 4; // the group-call dialog offers 1 to 4
// clang-format on

const SelCallPlace& PlaceOf(Direction direction) {
  return SelCallPlaces[static_cast<std::size_t>(direction)];
}

std::span<std::uint8_t> CodeOf(RadioImage& image, std::size_t channel) {
  return std::span(image.SelCallCodeBlock.bytes).subspan(channel * CodeBytes, CodeBytes);
}

std::span<const std::uint8_t> CodeOf(const RadioImage& image, std::size_t channel) {
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

// The number after a prefix, 0 to 255.
std::optional<std::uint8_t> NumberAfter(std::string_view text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return std::nullopt;
  const std::optional<int> number = ParseWhole(text.substr(prefix.size()));
  if (!number || *number > 0xFF) return std::nullopt;
  return static_cast<std::uint8_t>(*number);
}

} // namespace

std::string SelCallText(const RadioImage& image, std::size_t channel, Direction direction) {
  const SelCallPlace& place = PlaceOf(direction);
  const auto record = image.ChannelBlock.Row(channel);
  if (ReadField(record, place.on) == 0) return "OFF";
  if (IsTtsMode(image)) return "TTS " + std::to_string(record[place.ttsEntry]);
  std::string text = "5T ";
  for (const BlockField& digit : place.digits) {
    text += HexDigit(ReadField(CodeOf(image, channel), digit));
  }
  return text;
}

void ApplySelCallText(RadioImage& image, std::size_t channel, Direction direction, std::string_view text) {
  const SelCallPlace& place = PlaceOf(direction);
  const auto record = image.ChannelBlock.Row(channel);
  if (text == "OFF") {
    WriteField(record, place.on, 0);
    record[place.ttsEntry] = 0;
  } else if (const auto entry = NumberAfter(text, "TTS ")) {
    WriteField(record, place.on, 1);
    record[place.ttsEntry] = *entry;
  } else if (text.starts_with("5T ") && text.size() == 3 + CodeDigits) {
    WriteField(record, place.on, 1);
    record[place.ttsEntry] = 0;
    for (std::size_t i = 0; i < CodeDigits; ++i) {
      if (const auto digit = HexValue(text[3 + i])) WriteField(CodeOf(image, channel), place.digits[i], *digit);
    }
  }
}

std::string GroupCallText(const RadioImage& image, std::size_t channel) {
  if (!IsTtsMode(image)) {
    const int group = ReadField(CodeOf(image, channel), FiveToneGroup);
    return group == 0 ? "OFF" : "5T " + std::to_string(group);
  }
  const int group = image.ChannelBlock(channel, TtsGroupByte) & 0x0F;
  switch (group) {
  case 0:
    return "OFF";
  case 1:
    return "Tone A";
  case 2:
    return "Tone B";
  default:
    return std::string(UnlistedGroup) + std::to_string(group);
  }
}

void ApplyGroupCallText(RadioImage& image, std::size_t channel, std::string_view text) {
  if (IsTtsMode(image)) {
    std::uint8_t& stored = image.ChannelBlock(channel, TtsGroupByte);
    if (text == "OFF") {
      stored = 0x00;
    } else if (text == "Tone A") {
      stored = 0x11;
    } else if (text == "Tone B") {
      stored = 0x22;
    } else if (const auto group = NumberAfter(text, UnlistedGroup); group && (stored & 0x0F) != *group) {
      stored = static_cast<std::uint8_t>((*group & 0x0F) * 0x11);
    }
    return;
  }
  const auto group = text == "OFF" ? std::optional<std::uint8_t>(0) : NumberAfter(text, "5T ");
  const std::span<std::uint8_t> code = CodeOf(image, channel);
  if (!group || *group > 0x0F) return;
  if (*group > FiveToneGroups && ReadField(code, FiveToneGroup) == *group) return;
  WriteField(code, FiveToneGroup, *group);
  WriteField(code, FiveToneGroupCopy, *group);
}

TtsEntry ReadTtsEntry(const RadioImage& image, std::size_t entry) {
  const std::size_t e = entry - 1;
  const auto& times = image.TtsTimingBlock.bytes;
  return {ReadFrequency(image, 2 * e),
          ReadFrequency(image, 2 * e + 1),
          times[4 * e],
          times[4 * e + 1],
          times[4 * e + 2],
          times[4 * e + 3]};
}

void WriteTtsFrequencies(RadioImage& image, std::size_t entry, std::uint16_t toneA, std::uint16_t toneB) {
  WriteFrequency(image, 2 * (entry - 1), toneA);
  WriteFrequency(image, 2 * (entry - 1) + 1, toneB);
}

void WriteTtsTimes(RadioImage& image, std::size_t entry, const TtsEntry& times) {
  std::uint8_t* const at = image.TtsTimingBlock.bytes.data() + 4 * (entry - 1);
  at[0] = times.toneADuration;
  at[1] = times.toneBDuration;
  at[2] = times.gap;
  at[3] = times.groupCallDuration;
}

std::string TtsTimeText(std::uint8_t tenths, char decimalSeparator) {
  return FormatDecimal(tenths, 1, 1, decimalSeparator);
}

std::optional<std::uint8_t> TtsTime(std::string_view text, char decimalSeparator) {
  const std::optional<Decimal> seconds = ParseDecimal(text, decimalSeparator);
  if (!seconds) return std::nullopt;
  const std::int64_t tenths = CountOfUnits(*seconds, 1, 1);
  if (tenths < 0 || tenths > 0xFF) return std::nullopt;
  return static_cast<std::uint8_t>(tenths);
}

bool ApplyStandard(RadioImage& image, int standard) {
  if (standard < 1 || standard > static_cast<int>(FiveToneStandardTable.size())) return false;
  const FiveToneRow& row = FiveToneStandardTable[static_cast<std::size_t>(standard - 1)];
  for (std::size_t tone = 0; tone < row.tones.size(); ++tone) {
    WriteFrequency(image, tone, row.tones[tone]);
  }
  image.ResetTimeBlock[ToneLengthByte] = row.toneLength;
  image.ResetTimeBlock[StandardByte] = static_cast<std::uint8_t>(standard);
  return true;
}

void LoadTtsDefaults(RadioImage& image) {
  for (std::size_t entry = 1; entry <= TtsEntryCount; ++entry) {
    const TtsEntry& row = TtsDefaultTable[entry - 1];
    WriteTtsFrequencies(image, entry, row.toneA, row.toneB);
    WriteTtsTimes(image, entry, row);
  }
  image.ResetTimeBlock[ToneLengthByte] = 1;
  image.ResetTimeBlock[StandardByte] = 1;
}

} // namespace mr4500x
