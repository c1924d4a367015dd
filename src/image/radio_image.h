// The radio's configuration memory as the program holds it: the blocks, the map of 8-byte transfer records and the
// operations on the whole image. What the bytes of a block mean is left to the codec of that block.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "local_time.h"

namespace mr4500x {

inline constexpr std::size_t ChannelCount = 16;
inline constexpr std::size_t RecordBytes = 8; // what one transfer record carries
inline constexpr std::size_t EmbeddedInfoCapacity = 240;

// A two-dimensional block, addressed (row, column) from 0. Rows lie one after another, as in radio memory.
template<std::size_t RowCount, std::size_t ColumnCount>
struct GridBlock {
  static constexpr std::size_t Rows = RowCount;
  static constexpr std::size_t Columns = ColumnCount;
  std::array<std::uint8_t, Rows * Columns> bytes{};

  constexpr std::uint8_t& operator()(std::size_t row, std::size_t column) { return bytes[row * Columns + column]; }
  constexpr std::uint8_t operator()(std::size_t row, std::size_t column) const { return bytes[row * Columns + column]; }
  constexpr std::span<std::uint8_t, Columns> Row(std::size_t row) {
    return std::span<std::uint8_t, Columns>(bytes.data() + row * Columns, Columns);
  }
  constexpr std::span<const std::uint8_t, Columns> Row(std::size_t row) const {
    return std::span<const std::uint8_t, Columns>(bytes.data() + row * Columns, Columns);
  }
  bool operator==(const GridBlock&) const = default;
};

// The one block of variable length, 0 to 240 bytes. Bytes from `length` on are kept at 0x00.
struct EmbeddedInfo {
  std::array<std::uint8_t, EmbeddedInfoCapacity> bytes{};
  std::size_t length = EmbeddedInfoCapacity;
  bool operator==(const EmbeddedInfo&) const = default;
};

enum class ImageBlock : std::uint8_t {
  ChannelBlock,
  RadioSettingsBlock,
  KeyProgramBlock,
  PttIdBlock,
  EmergencyAniBlock,
  TtsTimingBlock,
  ResetTimeBlock,
  ToneFrequencyBlock,
  RadioIdBlock,
  WriteStampBlock,
  EmbeddedInfoBlock,
  SelCallCodeBlock,
  BandBlock,
  FirmwareVersionBlock,
  PatrolWorkBlock,
};

// A value of this type is a created image: every block in its shape, every byte 0x00.
struct RadioImage {
  GridBlock<ChannelCount, 16> ChannelBlock; // row = channel 0 to 15, column = byte of its record
  std::array<std::uint8_t, 16> RadioSettingsBlock{};
  std::array<std::uint8_t, 8> KeyProgramBlock{};
  std::array<std::uint8_t, 16> PttIdBlock{};
  std::array<std::uint8_t, 8> EmergencyAniBlock{};
  GridBlock<4, 8> TtsTimingBlock; // row r = TTS entries 2r and 2r + 1
  std::array<std::uint8_t, 8> ResetTimeBlock{};
  std::array<std::uint8_t, 32> ToneFrequencyBlock{};
  std::array<std::uint8_t, 16> RadioIdBlock{};    // read from the radio, never written to it
  std::array<std::uint8_t, 16> WriteStampBlock{}; // YYYYMMDDhhmmss in ASCII, then 0x00 0x00
  EmbeddedInfo EmbeddedInfoBlock;
  GridBlock<8, 16> SelCallCodeBlock; // row r = channels 2r and 2r + 1, 8 bytes each
  std::array<std::uint8_t, 8> BandBlock{};
  std::array<std::uint8_t, 8> FirmwareVersionBlock{}; // read from the radio, never written to it
  std::array<std::uint8_t, 8> PatrolWorkBlock{};      // no radio memory, no file item
  std::int16_t FiveToneStandard = 0;                  // 1 to 11; travels in data files beside the blocks

  bool operator==(const RadioImage&) const = default;
};

// The shape of a block and its place in radio memory. Rows is 1 for a one-dimensional block.
struct BlockPlace {
  ImageBlock block;
  std::uint16_t address; // of its first byte in radio memory
  std::uint16_t rows;
  std::uint16_t columns;
  constexpr std::size_t Bytes() const { return std::size_t{rows} * columns; }
};

// The record map: both PlaceRecord and TakeRecord walk this table. In radio memory a block is one run of bytes,
// row after row, so the position in its block follows from the address alone. Memory between the ranges
// (0x118-0x12F, 0x148-0x17F, 0x1A0-0x1BF, 0x1E8-0x1EF, 0x380-0x3EF) belongs to no block.
// clang-format off
inline constexpr std::array<BlockPlace, 14> RecordMap = {{
    //  block                              address  rows  columns
    {ImageBlock::ChannelBlock,              0x000,    16,      16},
    {ImageBlock::RadioSettingsBlock,        0x100,     1,      16},
    {ImageBlock::KeyProgramBlock,           0x110,     1,       8},
    {ImageBlock::PttIdBlock,                0x130,     1,      16},
    {ImageBlock::EmergencyAniBlock,         0x140,     1,       8},
    {ImageBlock::TtsTimingBlock,            0x180,     4,       8},
    {ImageBlock::ResetTimeBlock,            0x1C0,     1,       8},
    {ImageBlock::ToneFrequencyBlock,        0x1C8,     1,      32},
    {ImageBlock::RadioIdBlock,              0x1F0,     1,      16},
    {ImageBlock::WriteStampBlock,           0x200,     1,      16},
    {ImageBlock::EmbeddedInfoBlock,         0x210,     1,     240},
    {ImageBlock::SelCallCodeBlock,          0x300,     8,      16},
    {ImageBlock::BandBlock,                 0x3F0,     1,       8},
    {ImageBlock::FirmwareVersionBlock,      0x3F8,     1,       8},
}};
// clang-format on

// Where the element (row, column) of a block with `rows` rows stands when the block is stored as one run of bytes
// in a data file: the row index varies fastest.
constexpr std::size_t SerialPosition(std::size_t row, std::size_t column, std::size_t rows) {
  return row + rows * column;
}

// The bytes of a block in radio memory order. EmbeddedInfoBlock yields its current length only.
[[nodiscard]] std::span<std::uint8_t> BlockBytes(RadioImage& image, ImageBlock block);
[[nodiscard]] std::span<const std::uint8_t> BlockBytes(const RadioImage& image, ImageBlock block);

// The new image: the defaults of every block that has some. RadioIdBlock, FirmwareVersionBlock, SelCallCodeBlock,
// PatrolWorkBlock and the bytes without a default keep their values. Showing it is left to the editor.
void ResetToDefaults(RadioImage& image, const LocalTime& now);

// Writes the default channel record, computed from the lower limit in BandBlock, into all channels and takes
// channel 1 into use.
void ResetChannels(RadioImage& image);

// Sets every block but PatrolWorkBlock and WriteStampBlock to 0x00 (EmbeddedInfoBlock to 240 bytes), so that what
// no record fills reads as 0x00.
void ClearForReading(RadioImage& image);

// Fills WriteStampBlock with the given moment.
void Stamp(RadioImage& image, const LocalTime& now);

enum class PlaceResult {
  Placed,
  Ignored, // the address belongs to no block
  Unfit,   // not a record: over 8 bytes, an address that is no multiple of 8, or more bytes than the block holds
};

// Stores the bytes of a record at the positions of the record map. Unless it answers Placed nothing has changed.
[[nodiscard]] PlaceResult PlaceRecord(RadioImage& image, std::uint16_t address, std::span<const std::uint8_t> data);

// The 8 bytes at the positions of the record map; 0x00 where EmbeddedInfoBlock is shorter. Nothing for an address
// that is not in the map.
[[nodiscard]] std::optional<std::array<std::uint8_t, RecordBytes>> TakeRecord(const RadioImage& image,
                                                                              std::uint16_t address);

} // namespace mr4500x
