#include "channel_record.h"

#include "function_settings.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using C = GridColumn;
using Bytes = std::vector<std::uint8_t>;

Bytes Record(const RadioImage& image, std::size_t channel) {
  const auto row = image.ChannelBlock.Row(channel);
  return {row.begin(), row.end()};
}

TEST(ChannelRecordTest, TextsWithACommaBuildTheRecordAndComeBack) {
  const FieldTexts texts = BuildFieldTexts(',');
  RadioImage image;
  image.RadioSettingsBlock[2] = 0x80; // TTS
  ChannelTexts shown;
  shown.cells = {"",     "145,55000", "2,5", "CTC88,5", "TTS 8", "OR",   "ON",    "151,00625",
                 "6,25", "-DCS754",   "OFF", "Permit",  "ON",    "12,5", "Tone B"};
  RecordFromTexts(image, 2, shown, texts);
  EXPECT_EQ(Record(image, 2), (Bytes{0xB4, 0x6C, 0xE3, 0, 8, 0, 0x91, 0x61, 0x5E, 0, 0x54, 7, 0xF0, 8, 0, 0x22}));
  EXPECT_EQ(TextsOfChannel(image, 2, texts), shown);
}

TEST(ChannelRecordTest, StrangeStepsAndLongCountsFromARadio) {
  const FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  const std::uint8_t bytes[] = {0x83, 0x10, 0x20, 0x30, 0, 0, 0x81, 0xFF, 0xFF, 0xFF};
  std::ranges::copy(bytes, image.ChannelBlock.Row(0).begin());
  const ChannelTexts shown = TextsOfChannel(image, 0, texts);
  EXPECT_EQ(shown[C::RxFreq], "000.00000");
  EXPECT_EQ(shown[C::RxStep], "6.25");
  EXPECT_EQ(shown[C::TxFreq], "104857.59375"); // all 24 bits are read
  RecordFromTexts(image, 0, shown, texts);
  EXPECT_EQ(Record(image, 0), (Bytes{0x81, 0, 0, 0, 0, 0, 0x81, 0xFF, 0xFF, 0x03, 0, 0, 0, 0, 0, 0}));
}

TEST(ChannelRecordTest, ATextThatNoFieldCanHaveLeavesTheFieldAsItWas) {
  const FieldTexts texts = BuildFieldTexts('.');
  const struct {
    bool tts;
    GridColumn column;
    const char* text;
  } cases[] = {
      {true, C::RxTone, "Oops"},       {true, C::RxTone, "Dave123"},
      {true, C::RxTone, "DCS12"},      {true, C::RxTone, "DCS 023"},
      {true, C::TxTone, "CTC#8"},      {true, C::TxTone, ""},
      {true, C::RxStep, "2,5"},        {true, C::TxStep, "5"},
      {true, C::RxFreq, "-145.5"},     {true, C::PttId, "on"},
      {true, C::BandWidth, "12,5"},    {true, C::Combination, "or"},
      {true, C::RxSelCall, "5T 123"},  {true, C::RxSelCall, "5T 12345"},
      {true, C::TxSelCall, "TTS 08"},  {true, C::GroupCall, "5T 1"},
      {true, C::GroupCall, "Tone #2"}, {false, C::RxSelCall, "TTS 1"},
      {false, C::RxSelCall, "5T 1x"},  {false, C::TxSelCall, "5T 1234x"},
      {false, C::GroupCall, "5T 0"},
  };
  for (const auto& [tts, column, text] : cases) {
    RadioImage image;
    WriteSetting(image, Setting::SelcallMode, tts ? 1 : 0);
    const std::uint8_t bytes[] = {0xBC, 0x6C, 0xE3, 0, 8, 0, 0xDC, 0x61, 0x5E, 0, 0x23, 0x00, 0xFF, 8, 7, 0x22};
    std::ranges::copy(bytes, image.ChannelBlock.Row(0).begin());
    image.SelCallCodeBlock.bytes = {0x45, 0x23, 0x21, 0x09, 0x78, 0x26};
    if (!tts) image.ChannelBlock(0, 13) = image.ChannelBlock(0, 14) = 0;
    const RadioImage before = image;
    ChannelTexts shown = TextsOfChannel(image, 0, texts);
    shown[column] = text;
    RecordFromTexts(image, 0, shown, texts);
    WriteSetting(image, Setting::ChannelsInUse, 0);
    EXPECT_EQ(image, before) << (tts ? "TTS, " : "5 Tone, ") << text;
  }
}

} // namespace
} // namespace mr4500x
