#include "channel_record.h"

#include "function_settings.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using C = GridColumn;

std::vector<std::uint8_t> Record(const RadioImage& image, std::size_t channel) {
  const auto row = image.ChannelBlock.Row(channel);
  return {row.begin(), row.end()};
}

TEST(ChannelRecordTest, AnEmptyRecordReadsAsEverythingOff) {
  const ChannelTexts shown = TextsOfChannel(RadioImage{}, 3, BuildFieldTexts('.'));
  EXPECT_TRUE(shown.noCh);
  EXPECT_TRUE(shown.noTx);
  const std::array<std::string, GridColumnCount> cells = {"",    "000.00000", "2.5",       "OFF",  "OFF",
                                                          "AND", "OFF",       "000.00000", "2.5",  "OFF",
                                                          "OFF", "Prohibit",  "OFF",       "12.5", "OFF"};
  EXPECT_EQ(shown.cells, cells);
}

TEST(ChannelRecordTest, TextsBuildTheRecordAndItsTextsComeBack) {
  const FieldTexts texts = BuildFieldTexts(',');
  RadioImage image;
  image.RadioSettingsBlock[2] = 0x80; // TTS
  image.ChannelBlock(2, 0) = 0x4B;    // bit 3 is nobody's and stays
  image.ChannelBlock(2, 5) = 0x5A;    // the code byte that CTCSS does not use stays
  image.ChannelBlock(2, 12) = 0x07;   // so do the unused option bits
  ChannelTexts shown;
  shown.cells = {"",     "145,55000", "2,5", "CTC88,5", "TTS 8", "OR", "ON",    "151,00625",
                 "6,25", "-DCS754",   "OFF", "Permit",  "ON",    "25", "Tone B"};
  RecordFromTexts(image, 2, shown, texts);
  EXPECT_EQ(Record(image, 2), (std::vector<std::uint8_t>{0xBC, 0x6C, 0xE3, 0x00, 8, 0x5A, 0x91, 0x61, 0x5E, 0x00, 0x54,
                                                         0x07, 0xFF, 8, 0, 0x22}));
  EXPECT_EQ(image.RadioSettingsBlock[12], 1);
  EXPECT_EQ(TextsOfChannel(image, 2, texts), shown);
}

struct FrequencyCase {
  const char* text;
  const char* step;
  std::vector<std::uint8_t> count;
  const char* back;
};

TEST(ChannelRecordTest, FrequenciesAreCountedInSteps) {
  const FieldTexts texts = BuildFieldTexts('.');
  const FrequencyCase cases[] = {
      {"438.01250", "2.5", {0x65, 0xAC, 0x02}, "438.01250"},
      {"440.00000", "6.25", {0x00, 0x13, 0x01}, "440.00000"},
      {"520.00000", "2.5", {0x80, 0x2C, 0x03}, "520.00000"},
      {"136.00875", "2.5", {0x84, 0xD4, 0x00}, "136.01000"}, // 54403.5 steps: the even count
      {"145.55125", "2.5", {0x6C, 0xE3, 0x00}, "145.55000"},
      {"655.36000", "2.5", {0x00, 0x00, 0x00}, "000.00000"}, // 2^18 does not fit the 18 bits written
      {"655.35750", "2.5", {0xFF, 0xFF, 0x03}, "655.35750"},
  };
  for (const FrequencyCase& c : cases) {
    RadioImage image;
    ChannelTexts shown = TextsOfChannel(image, 0, texts);
    shown[C::TxFreq] = c.text;
    shown[C::TxStep] = c.step;
    RecordFromTexts(image, 0, shown, texts);
    const auto row = Record(image, 0);
    EXPECT_EQ(std::vector<std::uint8_t>(row.begin() + 7, row.begin() + 10), c.count) << c.text;
    EXPECT_EQ(TextsOfChannel(image, 0, texts)[C::TxFreq], c.back);
  }
}

TEST(ChannelRecordTest, StrangeStepsAndLongCountsFromARadio) {
  const FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  const std::uint8_t bytes[] = {0x83, 0x10, 0x20, 0x30, 0, 0, 0x81, 0xFF, 0xFF, 0xFF};
  std::copy(std::begin(bytes), std::end(bytes), image.ChannelBlock.Row(0).begin());
  const ChannelTexts shown = TextsOfChannel(image, 0, texts);
  EXPECT_EQ(shown[C::RxFreq], "000.00000");
  EXPECT_EQ(shown[C::RxStep], "6.25");
  EXPECT_EQ(shown[C::TxFreq], "104857.59375"); // all 24 bits are read
  RecordFromTexts(image, 0, shown, texts);
  const std::vector<std::uint8_t> record = Record(image, 0);
  EXPECT_EQ(std::vector<std::uint8_t>(record.begin(), record.begin() + 10),
            (std::vector<std::uint8_t>{0x81, 0, 0, 0, 0, 0, 0x81, 0xFF, 0xFF, 0x03}));
}

} // namespace
} // namespace mr4500x
