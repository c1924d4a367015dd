#include "signaling.h"

#include "function_settings.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

RadioImage ImageIn(bool tts) {
  RadioImage image;
  WriteSetting(image, Setting::SelcallMode, tts ? 1 : 0);
  return image;
}

TEST(SignalingTest, FiveToneCodesArePackedDigits) {
  RadioImage image = ImageIn(false);
  image.SelCallCodeBlock.bytes.fill(0xEE);
  ApplyGroupCallText(image, 1, "5T 3");
  ApplySelCallText(image, 1, Direction::Rx, "5T 12345");
  ApplySelCallText(image, 1, Direction::Tx, "5T 00000");
  const auto row = image.SelCallCodeBlock.Row(0);
  EXPECT_EQ(std::vector<std::uint8_t>(row.begin() + 7, row.end()),
            (std::vector<std::uint8_t>{0xEE, 0x45, 0x23, 0x31, 0x00, 0x00, 0x30, 0xEE, 0xEE}));
  EXPECT_EQ(SelCallText(image, 1, Direction::Rx), "5T 12345");
  EXPECT_EQ(SelCallText(image, 1, Direction::Tx), "5T 00000");
  EXPECT_EQ(GroupCallText(image, 1), "5T 3");
  EXPECT_EQ(image.ChannelBlock(1, 0), 0x04);
  EXPECT_EQ(image.ChannelBlock(1, 6), 0x04);
  ApplyGroupCallText(image, 1, "OFF");
  ApplySelCallText(image, 1, Direction::Rx, "OFF");
  EXPECT_EQ(image.SelCallCodeBlock(0, 10), 0x01); // the digits stay
  EXPECT_EQ(SelCallText(image, 1, Direction::Rx), "OFF");
}

TEST(SignalingTest, TtsFieldsOfAChannel) {
  RadioImage image = ImageIn(true);
  ApplySelCallText(image, 15, Direction::Rx, "TTS 3");
  EXPECT_EQ(image.ChannelBlock(15, 0), 0x04);
  EXPECT_EQ(image.ChannelBlock(15, 13), 3);
  EXPECT_EQ(SelCallText(image, 15, Direction::Rx), "TTS 3");
  ApplySelCallText(image, 15, Direction::Rx, "OFF");
  EXPECT_EQ(image.ChannelBlock(15, 13), 0);
  const std::pair<const char*, std::uint8_t> groups[] = {{"Tone A", 0x11}, {"Tone B", 0x22}, {"OFF", 0x00}};
  for (const auto& [text, byte] : groups) {
    ApplyGroupCallText(image, 15, text);
    EXPECT_EQ(image.ChannelBlock(15, 15), byte);
    EXPECT_EQ(GroupCallText(image, 15), text);
  }
}

TEST(SignalingTest, WhatHasNoTextIsNamedAndComesBack) {
  for (const int entry : {0, 9, 255}) {
    RadioImage image = ImageIn(true);
    image.ChannelBlock(0, 6) = 0x04;
    image.ChannelBlock(0, 14) = static_cast<std::uint8_t>(entry);
    const RadioImage before = image;
    EXPECT_EQ(SelCallText(image, 0, Direction::Tx), "TTS " + std::to_string(entry));
    ApplySelCallText(image, 0, Direction::Tx, SelCallText(image, 0, Direction::Tx));
    EXPECT_EQ(image, before);
  }
  for (const int byte : {0x37, 0x9F, 0x03}) {
    RadioImage image = ImageIn(true);
    image.ChannelBlock(0, 15) = static_cast<std::uint8_t>(byte);
    const RadioImage before = image;
    EXPECT_EQ(GroupCallText(image, 0), "Tone #" + std::to_string(byte & 0x0F));
    ApplyGroupCallText(image, 0, GroupCallText(image, 0));
    EXPECT_EQ(image, before);
  }
  RadioImage image = ImageIn(false);
  image.ChannelBlock(0, 0) = 0x04;
  const std::uint8_t code[] = {0xAB, 0xCD, 0x7E, 0x00, 0x00, 0x90};
  std::copy(std::begin(code), std::end(code), image.SelCallCodeBlock.Row(0).begin());
  const RadioImage before = image;
  EXPECT_EQ(SelCallText(image, 0, Direction::Rx), "5T ECDAB");
  EXPECT_EQ(GroupCallText(image, 0), "5T 9");
  ApplySelCallText(image, 0, Direction::Rx, "5T ECDAB");
  ApplyGroupCallText(image, 0, "5T 9");
  EXPECT_EQ(image, before);
}

TEST(SignalingTest, TablesOfTonesAndTimes) {
  RadioImage image;
  LoadTtsDefaults(image);
  EXPECT_EQ(ReadTtsEntry(image, 8), (TtsEntry{1001, 2855, 5, 5, 5, 5}));
  EXPECT_EQ(image.ToneFrequencyBlock[28], 233);
  EXPECT_EQ(image.ToneFrequencyBlock[31], 11);

  ASSERT_TRUE(ApplyStandard(image, 10)); // EEA
  EXPECT_EQ(image.ToneFrequencyBlock[0] + 256 * image.ToneFrequencyBlock[1], 1981);
  EXPECT_EQ(image.ToneFrequencyBlock[30] + 256 * image.ToneFrequencyBlock[31], 2247);
  EXPECT_EQ(image.ResetTimeBlock[1], 40);
  EXPECT_EQ(image.ResetTimeBlock[2], 10);
  const RadioImage before = image;
  for (const int none : {0, 12, -1}) {
    EXPECT_FALSE(ApplyStandard(image, none));
  }
  EXPECT_EQ(image, before);
  const std::array<int, 11> sums = {25265, 23205, 18375, 25265, 23280, 22657, 24901, 24901, 22649, 24901, 22293};
  for (std::size_t i = 0; i < sums.size(); ++i) { // one wrong digit in the table would show
    int sum = 0;
    for (const int tone : FiveToneStandardTable[i].tones) {
      sum += tone;
    }
    EXPECT_EQ(sum, sums[i]) << FiveToneStandardTable[i].name;
  }

  EXPECT_EQ(TtsTimeText(0, '.'), "0.0");
  EXPECT_EQ(TtsTimeText(255, ','), "25,5");
  EXPECT_EQ(TtsTime("10.0", '.'), 100);
  EXPECT_EQ(TtsTime("25.6", '.'), std::nullopt);
  EXPECT_EQ(TtsTime("x", '.'), std::nullopt);
}

} // namespace
} // namespace mr4500x
