#include "radio_image.h"

#include "embedded_info.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace mr4500x {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr LocalTime Moment = {2004, 11, 4, 9, 5, 7};

Bytes BytesOf(std::span<const std::uint8_t> bytes) {
  return {bytes.begin(), bytes.end()};
}

RadioImage RandomImage(std::mt19937& random) {
  RadioImage image;
  for (const BlockPlace& place : RecordMap) {
    for (std::uint8_t& byte : BlockBytes(image, place.block)) {
      byte = static_cast<std::uint8_t>(random());
    }
  }
  return image;
}

TEST(RadioImageTest, ResetKeepsWhatHasNoDefault) {
  std::mt19937 random(1);
  const RadioImage before = RandomImage(random);
  RadioImage image = before;
  ResetToDefaults(image, Moment);
  EXPECT_EQ(image.BandBlock[7], before.BandBlock[7]);
  EXPECT_EQ(BytesOf(std::span(image.ResetTimeBlock).last(5)), BytesOf(std::span(before.ResetTimeBlock).last(5)));
  EXPECT_EQ(image.RadioIdBlock, before.RadioIdBlock);
  EXPECT_EQ(image.FirmwareVersionBlock, before.FirmwareVersionBlock);
  EXPECT_EQ(image.SelCallCodeBlock, before.SelCallCodeBlock);
  EXPECT_EQ(BytesOf(*TakeRecord(image, 0x208)), (Bytes{'0', '9', '0', '5', '0', '7', 0, 0}));
  EXPECT_EQ(LastProgrammingTime(image), "2004-11-04, 09:05:07");
  for (const ImageBlock block : {ImageBlock::KeyProgramBlock, ImageBlock::PttIdBlock, ImageBlock::EmergencyAniBlock})
    EXPECT_TRUE(std::ranges::all_of(BlockBytes(image, block), [](int byte) { return byte == 0; }));
}

TEST(RadioImageTest, ClearForReadingKeepsTheStampAndTheWorkBlock) {
  std::mt19937 random(2);
  const RadioImage before = RandomImage(random);
  RadioImage image = before;
  image.EmbeddedInfoBlock.length = 4;
  image.PatrolWorkBlock.fill(7);
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

TEST(RadioImageTest, TakingAndPlacingEveryRecordCopiesTheImage) {
  std::mt19937 random(3);
  for (int round = 0; round < 20; ++round) {
    const RadioImage image = RandomImage(random);
    RadioImage copy;
    for (std::uint16_t address = 0; address < 0x400; address = static_cast<std::uint16_t>(address + RecordBytes)) {
      if (const auto record = TakeRecord(image, address)) {
        EXPECT_EQ(PlaceRecord(copy, address, *record), PlaceResult::Placed);
      }
    }
    EXPECT_EQ(copy, image);
  }
}

TEST(EmbeddedInfoTest, TextsAreUtf16LowByteFirst) {
  EmbeddedInfo block;
  EXPECT_EQ(EmbeddedText(block).size(), 120U);
  EXPECT_EQ(VisibleText(EmbeddedText(block)), u"");
  ASSERT_TRUE(StoreEmbeddedText(block, u"AB\r\nC\u20AC"));
  EXPECT_EQ(BytesOf(std::span(block.bytes).first(block.length)),
            (Bytes{65, 0, 66, 0, 13, 0, 10, 0, 67, 0, 0xAC, 0x20}));
  EXPECT_EQ(EmbeddedText(block), u"AB\r\nC\u20AC");
  EXPECT_FALSE(StoreEmbeddedText(block, std::u16string(120, u'x')));
  EXPECT_EQ(EmbeddedText(block), u"AB\r\nC\u20AC");
  ASSERT_TRUE(StoreEmbeddedText(block, std::u16string(119, u'x')));
  RadioImage image;
  image.EmbeddedInfoBlock = block;
  EXPECT_EQ(BytesOf(*TakeRecord(image, 0x2F8)), (Bytes{'x', 0, 'x', 0, 'x', 0, 0, 0}));
}

} // namespace
} // namespace mr4500x
