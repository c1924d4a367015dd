#include "radio_image.h"

#include "embedded_info.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace mr4500x {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr LocalTime Moment = {2004, 11, 4, 9, 5, 7};

Bytes BytesOf(std::span<const std::uint8_t> bytes) {
  return {bytes.begin(), bytes.end()};
}

RadioImage FullImage() {
  RadioImage image;
  for (const BlockPlace& place : RecordMap)
    std::ranges::fill(BlockBytes(image, place.block), std::uint8_t{0xA5});
  image.PatrolWorkBlock.fill(7);
  return image;
}

TEST(RadioImageTest, ResetKeepsWhatHasNoDefault) {
  const RadioImage before = FullImage();
  RadioImage image = before;
  ResetToDefaults(image, Moment);
  EXPECT_EQ(image.BandBlock[7], 0xA5);
  EXPECT_EQ(image.ResetTimeBlock, (std::array<std::uint8_t, 8>{0, 1, 1, 0xA5, 0xA5, 0xA5, 0xA5, 0xA5}));
  for (const ImageBlock block :
       {ImageBlock::RadioIdBlock, ImageBlock::FirmwareVersionBlock, ImageBlock::SelCallCodeBlock})
    EXPECT_EQ(BytesOf(BlockBytes(image, block)), BytesOf(BlockBytes(before, block)));
  EXPECT_EQ(BytesOf(*TakeRecord(image, 0x208)), (Bytes{'0', '9', '0', '5', '0', '7', 0, 0}));
  EXPECT_EQ(LastProgrammingTime(image), "2004-11-04, 09:05:07");
  for (const ImageBlock block : {ImageBlock::KeyProgramBlock, ImageBlock::PttIdBlock, ImageBlock::EmergencyAniBlock})
    EXPECT_TRUE(std::ranges::all_of(BlockBytes(image, block), [](int byte) { return byte == 0; }));
}

TEST(RadioImageTest, ClearForReadingKeepsTheStampAndTheWorkBlock) {
  const RadioImage before = FullImage();
  RadioImage image = before;
  image.EmbeddedInfoBlock.length = 4;
  ClearForReading(image);
  RadioImage expected;
  expected.WriteStampBlock = before.WriteStampBlock;
  expected.PatrolWorkBlock.fill(7);
  EXPECT_EQ(image, expected);
}

TEST(RadioImageTest, WhatIsNoRecordChangesNothing) {
  const struct {
    std::uint16_t address;
    std::size_t bytes;
    PlaceResult result;
  } cases[] = {{0x118, 8, PlaceResult::Ignored}, {0x148, 8, PlaceResult::Ignored},  {0x1E8, 8, PlaceResult::Ignored},
               {0x400, 8, PlaceResult::Ignored}, {0xFFF8, 8, PlaceResult::Ignored}, {0x110, 9, PlaceResult::Unfit},
               {0x004, 8, PlaceResult::Unfit},   {0x118, 9, PlaceResult::Unfit},    {0x210, 8, PlaceResult::Unfit}};
  const std::array<std::uint8_t, 9> data = {1, 1, 1, 1, 1, 1, 1, 1, 1};
  RadioImage image;
  image.EmbeddedInfoBlock.length = 4; // too short for the record at 0x210
  const RadioImage before = image;
  for (const auto& [address, bytes, result] : cases) {
    EXPECT_EQ(PlaceRecord(image, address, std::span(data).first(bytes)), result) << address;
    EXPECT_EQ(image, before) << address;
  }
  EXPECT_EQ(TakeRecord(image, 0x118), std::nullopt);
  EXPECT_EQ(TakeRecord(image, 0x004), std::nullopt);
  EXPECT_EQ(PlaceRecord(image, 0x3F0, std::span(data).first(2)), PlaceResult::Placed);
  EXPECT_EQ(BytesOf(image.BandBlock), (Bytes{1, 1, 0, 0, 0, 0, 0, 0}));
}

} // namespace
} // namespace mr4500x
