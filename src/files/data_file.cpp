#include "data_file.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "file_access.h"
#include "function_settings.h"
#include "tagged_items.h"

namespace mr4500x {
namespace {

constexpr std::string_view HeaderVersion0 = "Data file of LR7200 Radio Series, Calvorne VTR.";
constexpr std::string_view HeaderVersion1 = "Data file of LR7201 Radio Series, Calvorne VTR.";
constexpr std::string_view HeaderOfSeries = "Data file of LR720"; // headers of this and later versions begin so

// The items after the header and the format marker, in file order.
// clang-format off
constexpr std::array<std::optional<ImageBlock>, 11> FileItems = {
    //                                    offset
    ImageBlock::ChannelBlock,          //     53
    ImageBlock::RadioSettingsBlock,    //    329
    ImageBlock::PttIdBlock,            //    357
    ImageBlock::KeyProgramBlock,       //    385
    ImageBlock::TtsTimingBlock,        //    405
    ImageBlock::ResetTimeBlock,        //    457
    ImageBlock::SelCallCodeBlock,      //    477
    ImageBlock::ToneFrequencyBlock,    //    625
    ImageBlock::BandBlock,             //    669
    std::nullopt,                      //    689: the integer FiveToneStandard
    ImageBlock::EmergencyAniBlock,     //    693: version 1 only
};
// clang-format on

const BlockLocation& ShapeOf(ImageBlock block) {
  return *std::ranges::find(RecordMap, block, &BlockLocation::block);
}

// Calls copy(index in the block, index in the file item) for every element: a file stores a block column by column.
template<typename Copy>
void ForEachElement(const BlockLocation& shape, Copy copy) {
  for (std::size_t row = 0; row < shape.rows; ++row)
    for (std::size_t column = 0; column < shape.columns; ++column)
      copy(row * shape.columns + column, row + shape.rows * column);
}

bool StoreItem(const TaggedItem& item, std::optional<ImageBlock> block, RadioImage& image) {
  if (item.tag != (block ? ItemTag::ByteArray : ItemTag::Integer)) return false;
  if (!block) {
    image.FiveToneStandard = item.integer;
    return true;
  }
  const BlockLocation& shape = ShapeOf(*block);
  ItemBytes dimensions;
  AppendDimensions(dimensions, shape.rows, shape.columns);
  if (!std::ranges::equal(item.dimensions, dimensions)) return false;
  const auto bytes = BlockBytes(image, *block);
  ForEachElement(shape, [&](std::size_t inBlock, std::size_t inFile) { bytes[inBlock] = item.elements[inFile]; });
  return true;
}

// Version 0 has no emergency ANI. The item in its place may have any shape, and the length in the settings is
// meaningless.
void ClearEmergencyAni(RadioImage& image) {
  image.EmergencyAniBlock.fill(0x00);
  WriteSetting(image, Setting::AniLength, 0);
}

LoadOutcome ReadBlocks(ItemReader& reader, int version, RadioImage& image) {
  for (const std::optional<ImageBlock> block : FileItems) {
    const auto item = reader.Next();
    if (!item) return LoadOutcome::Damaged;
    if (version == 0 && block == ImageBlock::EmergencyAniBlock)
      ClearEmergencyAni(image);
    else if (!StoreItem(*item, block, image))
      return LoadOutcome::Damaged;
  }
  return LoadOutcome::Loaded;
}

} // namespace

std::vector<std::uint8_t> BuildDataFile(const RadioImage& image) {
  ItemBytes file;
  file.reserve(DataFileBytes);
  AppendText(file, HeaderVersion1);
  AppendNumber(file, static_cast<std::uint16_t>(ItemTag::Empty), 2); // the format marker
  for (const std::optional<ImageBlock> block : FileItems) {
    AppendNumber(file, static_cast<std::uint16_t>(block ? ItemTag::ByteArray : ItemTag::Integer), 2);
    if (!block) {
      AppendNumber(file, static_cast<std::uint16_t>(image.FiveToneStandard), 2);
      continue;
    }
    const BlockLocation& shape = ShapeOf(*block);
    AppendNumber(file, shape.rows > 1 ? 2 : 1, 2);
    AppendDimensions(file, shape.rows, shape.columns);
    const auto bytes = BlockBytes(image, *block);
    const std::size_t elements = file.size();
    file.resize(elements + bytes.size());
    ForEachElement(shape, [&](std::size_t inBlock, std::size_t inFile) { file[elements + inFile] = bytes[inBlock]; });
  }
  return file;
}

LoadResult ParseDataFile(std::span<const std::uint8_t> bytes, RadioImage& image) {
  ItemReader reader(bytes);
  const auto damaged = [&](bool markerNotEmpty = false) {
    return LoadResult{LoadOutcome::Damaged, markerNotEmpty, reader.Begun(), reader.RanOut()};
  };
  const auto header = reader.Next();
  if (!header) return damaged();
  const bool isVersion1 = header->text == HeaderVersion1;
  if (!isVersion1 && header->text != HeaderVersion0)
    return {header->text.starts_with(HeaderOfSeries) ? LoadOutcome::LaterVersion : LoadOutcome::ErrorVersion};

  const auto marker = reader.Next();
  if (!marker) return damaged();
  const bool isEmpty = marker->tag == ItemTag::Empty || (marker->tag == ItemTag::Integer && marker->integer == 0);
  const LoadOutcome outcome = ReadBlocks(reader, isVersion1 ? 1 : 0, image);
  return outcome == LoadOutcome::Damaged ? damaged(!isEmpty) : LoadResult{outcome, !isEmpty};
}

LoadResult ResultOfLoad(const ReadResult& read, std::span<const std::uint8_t> bytes, RadioImage& image) {
  if (read == ReadOutcome::Read) return ParseDataFile(bytes, image);
  return {.outcome = read == ReadOutcome::Missing ? LoadOutcome::Missing : LoadOutcome::Damaged,
          .systemReason = read.result.Reason()};
}

LoadResult LoadDataFile(FileSystem& files, const std::string& path, RadioImage& image) {
  std::vector<std::uint8_t> bytes;
  const ReadResult read = ReadFile(files, path, DataFileReadLimit, bytes);
  return ResultOfLoad(read, bytes, image);
}

FileResult SaveDataFile(FileSystem& files, const std::string& path, const RadioImage& image) {
  return ReplaceFile(files, path, BuildDataFile(image), Surplus::Keep);
}

} // namespace mr4500x
