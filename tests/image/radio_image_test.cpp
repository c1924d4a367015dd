#include "radio_image.h"

#include "function_settings.h"
#include "signaling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace mr4500x {
namespace {

TEST(RadioImageTest, ClearForReadingKeepsTheStampAndTheWorkBlock) {
  RadioImage image, expected;
  for (const BlockLocation& place : RecordMap)
    std::ranges::fill(BlockBytes(image, place.block), std::uint8_t{0xA5});
  image.PatrolWorkBlock.fill(7);
  expected.WriteStampBlock = image.WriteStampBlock;
  expected.PatrolWorkBlock.fill(7);
  image.EmbeddedInfoBlock.length = 4;
  ClearForReading(image);
  EXPECT_EQ(image, expected);
}

TEST(RadioImageTest, ARecordWithoutABlockChangesNothing) {
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
}

TEST(SignalingTest, TablesOfTones) {
  const std::array<int, 11> sums = {25265, 23205, 18375, 25265, 23280, 22657, 24901, 24901, 22649, 24901, 22293};
  for (std::size_t i = 0; i < sums.size(); ++i) { // one wrong digit in the table would show
    const auto& tones = FiveToneStandardTable[i].tones;
    EXPECT_EQ(std::accumulate(tones.begin(), tones.end(), 0), sums[i]) << FiveToneStandardTable[i].name;
  }
  RadioImage image;
  const RadioImage before = image;
  for (const int none : {0, 12, -1})
    EXPECT_FALSE(ApplyStandard(image, none));
  EXPECT_EQ(image, before);
}

TEST(CharactersTest, SkipFillBytesAndReplaceUnprintableOnes) {
  const std::uint8_t bytes[] = {'V', '1', 0x00, 0x07, 0xE9, 0x90};
  EXPECT_EQ(CharactersText(bytes), "V1.\xC3\xA9.");
}

} // namespace
} // namespace mr4500x
