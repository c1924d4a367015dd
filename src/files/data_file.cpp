#include "data_file.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "file_access.h"
#include "tagged_items.h"

namespace mr4500x {
namespace {

constexpr std::string_view HeaderVersion0 = "Data file of LR7200 Radio Series, Calvorne VTR.";
constexpr std::string_view HeaderVersion1 = "Data file of LR7201 Radio Series, Calvorne VTR.";
constexpr std::string_view HeaderOfSeries = "Data file of LR720"; // of this or a later version

struct FileItem {
  std::optional<ImageBlock> block; // nullopt: the integer item FiveToneStandard
  std::uint16_t rows;              // 1 for an array of one dimension
  std::uint16_t columns;

  constexpr std::size_t DimensionCount() const { return rows > 1 ? 2 : 1; }
  constexpr std::size_t Bytes() const {
    return block ? ArrayItemBytes(DimensionCount(), std::size_t{rows} * columns) : IntegerItemBytes;
  }
  constexpr std::array<ItemDimension, 2> Dimensions() const { return {{{columns, 0}, {rows, 0}}}; }
};

// The items after the header and the format marker, in file order.
// clang-format off
constexpr std::array<FileItem, 11> FileItems = {{
    //  block                          rows  columns     offset
    {ImageBlock::ChannelBlock,          16,      16}, //     53
    {ImageBlock::RadioSettingsBlock,     1,      16}, //    329
    {ImageBlock::PttIdBlock,             1,      16}, //    357
    {ImageBlock::KeyProgramBlock,        1,       8}, //    385
    {ImageBlock::TtsTimingBlock,         4,       8}, //    405
    {ImageBlock::ResetTimeBlock,         1,       8}, //    457
    {ImageBlock::SelCallCodeBlock,       8,      16}, //    477
    {ImageBlock::ToneFrequencyBlock,     1,      32}, //    625
    {ImageBlock::BandBlock,              1,       8}, //    669
    {std::nullopt,                       1,       1}, //    689
    {ImageBlock::EmergencyAniBlock,      1,       8}, //    693: version 1 only
}};
// clang-format on

constexpr std::size_t BytesOfAllItems() {
  std::size_t bytes = TextItemBytes(HeaderVersion1.size()) + TagBytes;
  for (const FileItem& item : FileItems)
    bytes += item.Bytes();
  return bytes;
}
static_assert(BytesOfAllItems() == DataFileBytes);

constexpr bool ShapesAreTheImages() {
  return std::all_of(FileItems.begin(), FileItems.end(), [](const FileItem& item) {
    return !item.block || std::any_of(RecordMap.begin(), RecordMap.end(), [&](const BlockPlace& place) {
      return place.block == *item.block && place.rows == item.rows && place.columns == item.columns;
    });
  });
}
static_assert(ShapesAreTheImages());

// Calls copy(index in the block, index in the file item) for every element.
template<typename Copy>
void ForEachElement(const FileItem& shape, Copy copy) {
  for (std::size_t row = 0; row < shape.rows; ++row)
    for (std::size_t column = 0; column < shape.columns; ++column)
      copy(row * shape.columns + column, SerialPosition(row, column, shape.rows));
}

bool HasShape(const TaggedItem& item, const FileItem& shape) {
  if (item.tag != ItemTag::ByteArray || item.DimensionCount() != shape.DimensionCount()) return false;
  for (std::size_t i = 0; i < shape.DimensionCount(); ++i)
    if (item.Dimension(i) != shape.Dimensions()[i]) return false;
  return true;
}

bool StoreItem(const TaggedItem& item, const FileItem& shape, RadioImage& image) {
  if (!shape.block) {
    if (item.tag != ItemTag::Integer) return false;
    image.FiveToneStandard = item.integer;
    return true;
  }
  if (!HasShape(item, shape)) return false;
  const auto bytes = BlockBytes(image, *shape.block);
  ForEachElement(shape, [&](std::size_t inBlock, std::size_t inFile) { bytes[inBlock] = item.content[inFile]; });
  return true;
}

// Version 0 has no emergency ANI: the item in its place may have any shape, and its length in the settings (byte 14,
// bits 4 to 0) is meaningless.
void ClearEmergencyAni(RadioImage& image) {
  image.EmergencyAniBlock.fill(0x00);
  image.RadioSettingsBlock[14] &= 0xE0;
}

LoadOutcome ReadBlocks(ItemReader& reader, int version, RadioImage& image) {
  for (const FileItem& shape : FileItems) {
    const auto item = reader.Next();
    if (!item) return LoadOutcome::Damaged;
    if (version == 0 && shape.block == ImageBlock::EmergencyAniBlock)
      ClearEmergencyAni(image);
    else if (!StoreItem(*item, shape, image))
      return LoadOutcome::Damaged;
  }
  return LoadOutcome::Loaded;
}

} // namespace

std::array<std::uint8_t, DataFileBytes> BuildDataFile(const RadioImage& image) {
  std::array<std::uint8_t, DataFileBytes> file{};
  ItemWriter writer(file);
  writer.PutText(HeaderVersion1);
  writer.PutEmpty(); // the format marker
  for (const FileItem& shape : FileItems) {
    if (!shape.block) {
      writer.PutInteger(image.FiveToneStandard);
      continue;
    }
    const auto dimensions = shape.Dimensions();
    const auto elements = writer.PutArray(std::span(dimensions).first(shape.DimensionCount()));
    const auto bytes = BlockBytes(image, *shape.block);
    ForEachElement(shape, [&](std::size_t inBlock, std::size_t inFile) { elements[inFile] = bytes[inBlock]; });
  }
  return file;
}

LoadResult ParseDataFile(std::span<const std::uint8_t> bytes, RadioImage& image) {
  ItemReader reader(bytes);
  const auto header = reader.Next();
  if (!header) return {LoadOutcome::Damaged};
  const bool isVersion1 = header->IsText(HeaderVersion1);
  if (!isVersion1 && !header->IsText(HeaderVersion0))
    return {header->IsTextStartingWith(HeaderOfSeries) ? LoadOutcome::LaterVersion : LoadOutcome::ErrorVersion};

  const auto marker = reader.Next();
  if (!marker) return {LoadOutcome::Damaged};
  const bool isEmpty = marker->tag == ItemTag::Empty || (marker->tag == ItemTag::Integer && marker->integer == 0);
  return {ReadBlocks(reader, isVersion1 ? 1 : 0, image), !isEmpty};
}

LoadResult LoadDataFile(FileSystem& files, const std::string& path, RadioImage& image) {
  std::vector<std::uint8_t> bytes;
  const ReadOutcome outcome = ReadFile(files, path, DataFileReadLimit, bytes);
  if (outcome == ReadOutcome::Read) return ParseDataFile(bytes, image);
  return {outcome == ReadOutcome::Missing ? LoadOutcome::Missing : LoadOutcome::Damaged};
}

bool SaveDataFile(FileSystem& files, const std::string& path, const RadioImage& image) {
  return ReplaceFile(files, path, BuildDataFile(image), Surplus::Keep);
}

} // namespace mr4500x
