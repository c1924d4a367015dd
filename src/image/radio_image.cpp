#include "radio_image.h"

#include "channel_record.h"
#include "signaling.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr bool RecordMapIsSound() {
  std::size_t end = 0;
  for (const BlockLocation& place : RecordMap) {
    if (place.address < end || place.address % RecordBytes != 0 || place.Bytes() % RecordBytes != 0) return false;
    end = place.address + place.Bytes();
  }
  return end == 0x400;
}
static_assert(RecordMapIsSound());

std::uint8_t Digit(int number) {
  return static_cast<std::uint8_t>('0' + number % 10);
}

} // namespace

const BlockLocation* LocationOf(std::uint16_t address) {
  const auto holds = [address](const BlockLocation& place) {
    return address >= place.address && address < place.address + place.Bytes();
  };
  const auto* const found = std::find_if(RecordMap.begin(), RecordMap.end(), holds);
  return found == RecordMap.end() ? nullptr : found;
}

std::string_view NameOf(ImageBlock block) {
  constexpr std::array<std::string_view, 15> Names = {
      // in the order of ImageBlock
      "ChannelBlock",      "RadioSettingsBlock", "KeyProgramBlock",    "PttIdBlock",           "EmergencyAniBlock",
      "TtsTimingBlock",    "ResetTimeBlock",     "ToneFrequencyBlock", "RadioIdBlock",         "WriteStampBlock",
      "EmbeddedInfoBlock", "SelCallCodeBlock",   "BandBlock",          "FirmwareVersionBlock", "PatrolWorkBlock"};
  return Names[static_cast<std::size_t>(block)];
}

std::span<std::uint8_t> BlockBytes(RadioImage& image, ImageBlock block) {
  // clang-format off
  switch (block) {
  case ImageBlock::ChannelBlock:         return image.ChannelBlock.bytes;
  case ImageBlock::RadioSettingsBlock:   return image.RadioSettingsBlock;
  case ImageBlock::KeyProgramBlock:      return image.KeyProgramBlock;
  case ImageBlock::PttIdBlock:           return image.PttIdBlock;
  case ImageBlock::EmergencyAniBlock:    return image.EmergencyAniBlock;
  case ImageBlock::TtsTimingBlock:       return image.TtsTimingBlock.bytes;
  case ImageBlock::ResetTimeBlock:       return image.ResetTimeBlock;
  case ImageBlock::ToneFrequencyBlock:   return image.ToneFrequencyBlock;
  case ImageBlock::RadioIdBlock:         return image.RadioIdBlock;
  case ImageBlock::WriteStampBlock:      return image.WriteStampBlock;
  case ImageBlock::EmbeddedInfoBlock:    return std::span(image.EmbeddedInfoBlock.bytes).first(image.EmbeddedInfoBlock.length);
  case ImageBlock::SelCallCodeBlock:     return image.SelCallCodeBlock.bytes;
  case ImageBlock::BandBlock:            return image.BandBlock;
  case ImageBlock::FirmwareVersionBlock: return image.FirmwareVersionBlock;
  case ImageBlock::PatrolWorkBlock:      return image.PatrolWorkBlock;
  }
  // clang-format on
  return {};
}

std::span<const std::uint8_t> BlockBytes(const RadioImage& image, ImageBlock block) {
  return BlockBytes(const_cast<RadioImage&>(image), block);
}

void ResetToDefaults(RadioImage& image, const LocalTime& now) {
  constexpr std::array<std::uint8_t, 7> band = {0xB8, 0x01, 0xD6, 0x01, 0x00, 0x30, 0x00}; // 440 to 470 MHz
  std::copy(band.begin(), band.end(), image.BandBlock.begin());
  ResetChannels(image);
  image.RadioSettingsBlock = {0xC2, 0x02, 0x80, 0x00, 0x05, 0x05, 0x05, 0x05, 0x05, 0x00, 0x00, 0x00, 0x00, 0x80};
  image.PttIdBlock = {};
  image.EmergencyAniBlock = {};
  image.KeyProgramBlock = {};
  image.ResetTimeBlock[ResetTimeByte] = 0x00;
  LoadTtsDefaults(image);
  image.FiveToneStandard = image.ResetTimeBlock[StandardByte];
  Stamp(image, now);
  image.EmbeddedInfoBlock = {.bytes = {}, .length = 0};
}

void ClearForReading(RadioImage& image) {
  const RadioImage old = image;
  image = {};
  image.PatrolWorkBlock = old.PatrolWorkBlock;
  image.WriteStampBlock = old.WriteStampBlock;
  image.FiveToneStandard = old.FiveToneStandard;
}

void Stamp(RadioImage& image, const LocalTime& now) {
  image.WriteStampBlock = {Digit(now.year / 1000), Digit(now.year / 100), Digit(now.year / 10),   Digit(now.year),
                           Digit(now.month / 10),  Digit(now.month),      Digit(now.day / 10),    Digit(now.day),
                           Digit(now.hour / 10),   Digit(now.hour),       Digit(now.minute / 10), Digit(now.minute),
                           Digit(now.second / 10), Digit(now.second)};
}

PlaceResult PlaceRecord(RadioImage& image, std::uint16_t address, std::span<const std::uint8_t> data) {
  if (data.size() > RecordBytes || address % RecordBytes != 0) return PlaceResult::Unfit;
  const BlockLocation* const place = LocationOf(address);
  if (place == nullptr) return PlaceResult::Ignored;
  const std::span<std::uint8_t> block = BlockBytes(image, place->block);
  const std::size_t offset = std::size_t{address} - place->address;
  if (offset + data.size() > block.size()) return PlaceResult::Unfit;
  std::copy(data.begin(), data.end(), block.begin() + static_cast<std::ptrdiff_t>(offset));
  return PlaceResult::Placed;
}

std::optional<std::array<std::uint8_t, RecordBytes>> TakeRecord(const RadioImage& image, std::uint16_t address) {
  const BlockLocation* const place = address % RecordBytes == 0 ? LocationOf(address) : nullptr;
  if (place == nullptr) return std::nullopt;
  const std::span<const std::uint8_t> block = BlockBytes(image, place->block);
  const std::size_t offset = std::size_t{address} - place->address;
  std::array<std::uint8_t, RecordBytes> record{};
  for (std::size_t i = 0; i < RecordBytes && offset + i < block.size(); ++i)
    record[i] = block[offset + i];
  return record;
}

} // namespace mr4500x
