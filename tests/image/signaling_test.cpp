#include "signaling.h"

#include "function_settings.h"

#include <gtest/gtest.h>

#include <numeric>

namespace mr4500x {
namespace {

RadioImage ImageIn(bool tts) {
  RadioImage image;
  WriteSetting(image, Setting::SelcallMode, tts ? 1 : 0);
  return image;
}

TEST(SignalingTest, OffLeavesTheDigitsAndTakesTheEntry) {
  RadioImage image = ImageIn(false);
  ApplySelCallText(image, 1, Direction::Rx, "5T 12345");
  ApplyGroupCallText(image, 1, "5T 3");
  ApplySelCallText(image, 1, Direction::Rx, "OFF");
  EXPECT_EQ(image.SelCallCodeBlock(0, 10), 0x31);
  ApplyGroupCallText(image, 1, "OFF");
  EXPECT_EQ(image.SelCallCodeBlock(0, 10), 0x01);
  EXPECT_EQ(image.ChannelBlock(1, 0), 0x00);

  image = ImageIn(true);
  ApplySelCallText(image, 15, Direction::Rx, "TTS 3");
  ApplySelCallText(image, 15, Direction::Rx, "OFF");
  EXPECT_EQ(image.ChannelBlock(15, 13), 0);
}

TEST(SignalingTest, WhatHasNoTextIsNamedAndComesBack) {
  const struct {
    bool tts;
    std::uint8_t flags, entry, group; // of the channel record
    std::array<std::uint8_t, 6> code;
    const char *call, *groupCall;
  } cases[] = {
      {true, 0x04, 0, 0x37, {}, "TTS 0", "Tone #7"},
      {true, 0x04, 9, 0x9F, {}, "TTS 9", "Tone #15"},
      {true, 0x04, 255, 0x03, {}, "TTS 255", "Tone #3"},
      {false, 0x04, 0, 0, {0x00, 0x00, 0x90, 0xAB, 0xCD, 0x9E}, "5T ECDAB", "5T 9"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.call);
    RadioImage image = ImageIn(c.tts);
    image.ChannelBlock(0, 6) = c.flags;
    image.ChannelBlock(0, 14) = c.entry;
    image.ChannelBlock(0, 15) = c.group;
    std::ranges::copy(c.code, image.SelCallCodeBlock.Row(0).begin());
    const RadioImage before = image;
    EXPECT_EQ(SelCallText(image, 0, Direction::Tx), c.call);
    EXPECT_EQ(GroupCallText(image, 0), c.groupCall);
    ApplySelCallText(image, 0, Direction::Tx, c.call);
    ApplyGroupCallText(image, 0, c.groupCall);
    EXPECT_EQ(image, before);
  }
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

} // namespace
} // namespace mr4500x
