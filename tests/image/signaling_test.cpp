#include "signaling.h"

#include "function_settings.h"

#include <gtest/gtest.h>

#include <numeric>

namespace mr4500x {
namespace {

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
