// The radio's configuration memory as blocks, the map of its 8-byte transfer records, and the operations on the whole
// image. The codecs (channel_record.h, function_settings.h, signaling.h …) know what the bytes of a block mean.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "clock.h"

namespace mr4500x {

inline constexpr std::size_t ChannelCount = 16;
inline constexpr std::size_t RecordBytes = 8; // size of a transfer record
inline constexpr std::size_t EmbeddedInfoCapacity = 240;

// A two-dimensional block, indexed (row, column) from 0 and stored row by row, as in radio memory.
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

// The only block of variable length, 0 to 240 bytes. The bytes after `length` stay 0x00.
struct EmbeddedInfo {
  std::array<std::uint8_t, EmbeddedInfoCapacity> bytes{};
  std::size_t length = EmbeddedInfoCapacity;
  bool operator==(const EmbeddedInfo&) const = default;
};

// clang-format off
enum class ImageBlock : std::uint8_t {
    ChannelBlock, RadioSettingsBlock, KeyProgramBlock, PttIdBlock, EmergencyAniBlock, TtsTimingBlock, ResetTimeBlock,
    ToneFrequencyBlock, RadioIdBlock, WriteStampBlock, EmbeddedInfoBlock, SelCallCodeBlock, BandBlock,
    FirmwareVersionBlock, PatrolWorkBlock,
};
// clang-format on

// A new image has 0x00 in every byte.
struct RadioImage {
  GridBlock<ChannelCount, 16> ChannelBlock; // row: channel 0 to 15, column: byte of its record
  std::array<std::uint8_t, 16> RadioSettingsBlock{};
  std::array<std::uint8_t, 8> KeyProgramBlock{};
  std::array<std::uint8_t, 16> PttIdBlock{};
  std::array<std::uint8_t, 8> EmergencyAniBlock{};
  GridBlock<4, 8> TtsTimingBlock; // row r: TTS entries 2r and 2r + 1
  std::array<std::uint8_t, 8> ResetTimeBlock{};
  std::array<std::uint8_t, 32> ToneFrequencyBlock{};
  std::array<std::uint8_t, 16> RadioIdBlock{};    // read from the radio, never written to it
  std::array<std::uint8_t, 16> WriteStampBlock{}; // YYYYMMDDhhmmss in ASCII, then 0x00 0x00
  EmbeddedInfo EmbeddedInfoBlock;
  GridBlock<8, 16> SelCallCodeBlock; // row r: channels 2r and 2r + 1, 8 bytes each
  std::array<std::uint8_t, 8> BandBlock{};
  std::array<std::uint8_t, 8> FirmwareVersionBlock{}; // read from the radio, never written to it
  std::array<std::uint8_t, 8> PatrolWorkBlock{};      // neither in the radio nor in data files
  std::int16_t FiveToneStandard = 0;                  // 1 to 11; a separate item in data files

  bool operator==(const RadioImage&) const = default;
};

// A block's shape and place in radio memory. `rows` is 1 for a one-dimensional block.
struct BlockLocation {
  ImageBlock block;
  std::uint16_t address; // address of its first byte in radio memory
  std::uint16_t rows;
  std::uint16_t columns;
  constexpr std::size_t Bytes() const { return std::size_t{rows} * columns; }
};

// Where each block lies in radio memory, stored row by row without gaps. PlaceRecord and TakeRecord both use this
// table. The addresses 0x118-0x12F, 0x148-0x17F, 0x1A0-0x1BF, 0x1E8-0x1EF and 0x380-0x3EF belong to no block.
// clang-format off
inline constexpr std::array<BlockLocation, 14> RecordMap = {{
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

// The block that contains an address of radio memory, or null.
[[nodiscard]] const BlockLocation* LocationOf(std::uint16_t address);
// "ChannelBlock"
[[nodiscard]] std::string_view NameOf(ImageBlock block);

// A block's bytes in the order of radio memory. For EmbeddedInfoBlock only its current length.
[[nodiscard]] std::span<std::uint8_t> BlockBytes(RadioImage& image, ImageBlock block);
[[nodiscard]] std::span<const std::uint8_t> BlockBytes(const RadioImage& image, ImageBlock block);

// Sets every block to its defaults. RadioIdBlock, FirmwareVersionBlock, SelCallCodeBlock, PatrolWorkBlock and bytes
// without a default keep their values.
void ResetToDefaults(RadioImage& image, const LocalTime& now);

// Before a read: sets every block except PatrolWorkBlock and WriteStampBlock to 0x00, EmbeddedInfoBlock with 240 bytes.
void ClearForReading(RadioImage& image);

// Fills WriteStampBlock.
void Stamp(RadioImage& image, const LocalTime& now);

enum class PlaceResult {
  Placed,
  Ignored, // the address belongs to no block
  Unfit,   // over 8 bytes, an address that is not a multiple of 8, or past the end of the block
};

// Stores a record by RecordMap. Changes nothing unless it returns Placed.
[[nodiscard]] PlaceResult PlaceRecord(RadioImage& image, std::uint16_t address, std::span<const std::uint8_t> data);

// The record at an address, padded with 0x00 after the end of a shorter EmbeddedInfoBlock. nullopt if the address
// belongs to no block.
[[nodiscard]] std::optional<std::array<std::uint8_t, RecordBytes>> TakeRecord(const RadioImage& image,
                                                                              std::uint16_t address);

} // namespace mr4500x
