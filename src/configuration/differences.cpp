#include "differences.h"

#include "decimal.h"
#include "text.h"

#include <algorithm>
#include <array>

namespace mr4500x {
namespace {

// The blocks that files hold and a write sends, except the write stamp.
constexpr std::array ComparedBlocks = {ImageBlock::ChannelBlock,      ImageBlock::RadioSettingsBlock,
                                       ImageBlock::KeyProgramBlock,   ImageBlock::PttIdBlock,
                                       ImageBlock::EmergencyAniBlock, ImageBlock::TtsTimingBlock,
                                       ImageBlock::ResetTimeBlock,    ImageBlock::ToneFrequencyBlock,
                                       ImageBlock::SelCallCodeBlock,  ImageBlock::BandBlock};

// The other image after storing the settings of `source` in it.
RadioImage Encoded(RadioImage base, const RadioImage& source, const Configuration& settings, const FieldTexts& texts) {
  base.FiveToneStandard = source.ResetTimeBlock[StandardByte];
  Encode(settings, base, texts);
  return base;
}

std::string TextForComparison(const Configuration& configuration, FieldAt at) {
  std::string text = ShownTextOf(configuration, at);
  return text.empty() ? ValueOf(configuration, at) : text;
}

// The name without the unit of a heading. The two steps of a channel have the same heading.
std::string ShortNameOf(FieldAt at) {
  std::string name = NameOf(at);
  if (at.field->key == "rx_step") name.insert(name.find("Step"), "Rx ");
  if (at.field->key == "tx_step") name.insert(name.find("Step"), "Tx ");
  const std::size_t unit = name.find('(');
  if (unit != std::string::npos) name.erase(unit);
  return std::string(TrimmedAtEnd(name));
}

std::string HexByte(std::uint8_t byte) {
  return {'0', 'x', HexDigit(byte >> 4), HexDigit(byte)};
}

} // namespace

std::vector<Difference> DifferencesBetween(const Configuration& before, const Configuration& after) {
  std::vector<Difference> differences;
  for (const Field& field : Fields())
    for (std::size_t entry = 1; entry <= EntriesOf(field.group); ++entry) {
      const FieldAt at{&field, entry};
      std::string old = TextForComparison(before, at), now = TextForComparison(after, at);
      if (old != now) differences.push_back({at, std::move(old), std::move(now)});
    }
  return differences;
}

ImageDifferences CompareImages(const RadioImage& before, const RadioImage& after, const FieldTexts& texts) {
  const RadioImage a = WithStandard(before), b = WithStandard(after);
  const Configuration old = Decode(a, texts).configuration, now = Decode(b, texts).configuration;
  ImageDifferences differences{DifferencesBetween(old, now), {}};
  // Settings explain the bits that change when the settings are stored in an image. A tone that is off has no bits of
  // its own, so both images are needed.
  const std::array<RadioImage, 4> made = {Encoded(a, a, old, texts), Encoded(a, b, now, texts), //
                                          Encoded(b, a, old, texts), Encoded(b, b, now, texts)};
  for (const ImageBlock block : ComparedBlocks) {
    const auto was = BlockBytes(before, block), is = BlockBytes(after, block);
    std::array<std::span<const std::uint8_t>, 4> bytes;
    std::ranges::transform(made, bytes.begin(), [block](auto& image) { return BlockBytes(image, block); });
    for (std::size_t i = 0; i < was.size(); ++i) {
      const int explained = (bytes[0][i] ^ bytes[1][i]) | (bytes[2][i] ^ bytes[3][i]);
      const auto bits = static_cast<std::uint8_t>((was[i] ^ is[i]) & ~explained);
      if (bits != 0) differences.bytes.push_back({block, i, was[i], is[i], bits});
    }
  }
  return differences;
}

void TakeByte(RadioImage& image, const ByteDifference& difference) {
  std::uint8_t& byte = BlockBytes(image, difference.block)[difference.offset];
  byte = static_cast<std::uint8_t>((byte & ~difference.bits) | (difference.after & difference.bits));
}

std::vector<DifferenceWords> WordsFor(const ImageDifferences& differences) {
  std::vector<DifferenceWords> words;
  for (const auto& [at, before, after] : differences.settings)
    words.push_back({at, ShortNameOf(at), before, after, {}});
  for (const ByteDifference& byte : differences.bytes) {
    std::string name = std::string(NameOf(byte.block)) + ' ' + std::to_string(byte.offset);
    words.push_back({{}, std::move(name), HexByte(byte.before), HexByte(byte.after), byte});
  }
  return words;
}

std::string NameOf(FieldAt at) {
  std::string name;
  if (at.field->group == FieldGroup::Channels) name = "CH" + std::to_string(at.entry) + ' ';
  if (at.field->group == FieldGroup::Tts) name = "TTS " + std::to_string(at.entry) + ' ';
  name += OnOneLine(at.field->label);
  return std::string(TrimmedAtEnd(name));
}

std::string OnOneLine(std::string_view label) {
  std::string text;
  for (const char c : label)
    if (c != ' ' || !(text.ends_with(' ') || text.ends_with('_'))) text += c;
  return text;
}

std::string ShownTextOf(const Configuration& configuration, FieldAt at) {
  std::string text = TextOf(configuration, at);
  if (at.field->kind != FieldKind::YesNo) return text;
  const bool yes = text == "true";
  return IsArray(at.field->group) ? (yes ? "yes" : "no") : (yes ? "ON" : "OFF");
}

} // namespace mr4500x
