#include "configuration.h"

#include "function_settings.h"
#include "rows.h"
#include "set_field.h"

namespace mr4500x {
namespace {

constexpr LocalTime Moment = {2026, 1, 2, 3, 4, 5};

class DecodeEncodeTest : public testing::Test {
protected:
  FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  Configuration values;

  void SetUp() override { values = NewConfiguration(image, texts, Moment); }
  Decoded Fill() {
    Decoded decoded = Decode(image, texts);
    SettleAfterFill(image);
    values = decoded.configuration;
    return decoded;
  }
  void Collect() {
    CompleteEmergencyPair(values);
    TakeSelectedStandard(values);
    Encode(values, image, texts);
  }
  std::array<std::uint8_t, 16>& Settings() { return image.RadioSettingsBlock; }
};

TEST_F(DecodeEncodeTest, OddBytesOfTheLists) {
  for (const Row& row : RowsOf(CASES "odd_bytes.txt", "(.*) at (.*): (.*) is (.*)")) {
    SetUp();
    Settings().at(std::stoul(row[2])) = BytesOf(row[3]).at(0);
    Fill();
    EXPECT_EQ(ValueOf(values, FindField(row[1]).value()), row[4]) << row[0];
  }
}

TEST_F(DecodeEncodeTest, CollectNormalisesOnlyWhatItMust) {
  Settings() = {0x5C, 0xA3, 0xFF, 0x8F, 7, 100, 0xFF, 0x04, 0x15, 0x7F, 0xE3, 0xE4, 9, 0xFF, 0xF1, 0xAA};
  image.PttIdBlock = {0x21, 0x03, 9, 9, 9, 9, 9, 9, 0x54, 0x06};
  const auto numbers = image.PttIdBlock;
  image.BandBlock[4] = image.BandBlock[5] = 0x99;
  Fill();
  EXPECT_EQ(values.connectId, "123");
  EXPECT_EQ(values.disconnectId, "----------------"); // "PTT ID" is "Connect ID" alone
  Collect();
  // Squelch 0 stays 0; byte 1 loses bit 7; byte 3 its channel without a priority; scan delay 7 becomes 5; the look back
  // and digit times without an item stay; the Disconnect length goes; byte 14 loses bit 5 and, with the lock off,
  // bit 6.
  EXPECT_EQ(Settings(), (std::array<std::uint8_t, 16>{0x5C, 0x23, 0xFF, 0x80, 5, 100, 0xFF, 0x04, 0x15, 0x7F, 0xE3,
                                                      0xE0, 1, 0xFF, 0x90, 0xAA}));
  EXPECT_EQ(image.PttIdBlock, numbers);
  EXPECT_EQ(image.BandBlock, (std::array<std::uint8_t, 8>{0xB8, 0x01, 0xD6, 0x01, 0x00, 0x30}));
}

TEST_F(DecodeEncodeTest, NumbersAreStoredAsThePttIdAsks) {
  values[ChoiceList::PttId].position = 1;
  values.connectId = "12-";
  values.disconnectId = "456";
  Collect();
  EXPECT_EQ(Settings()[10], 3);
  EXPECT_EQ(Settings()[11], 0);
  EXPECT_EQ(image.PttIdBlock[0], 0x21);
  EXPECT_EQ(image.PttIdBlock[1], 0x02);
  EXPECT_EQ(image.PttIdBlock[8], 0x00);
  values[ChoiceList::PttId].position = 3;
  values.connectId = "----------------";
  Collect();
  EXPECT_EQ(Settings()[10], 0);
  EXPECT_EQ(Settings()[11], 3);
  EXPECT_EQ(image.PttIdBlock[0], 0x21); // the placeholder leaves the digits alone
  EXPECT_EQ(image.PttIdBlock[8], 0x54);
}

TEST_F(DecodeEncodeTest, AnEmptyBoxKeepsTheStoredNumber) {
  values.lowerBandLimit = values.upperBandLimit = values.autoResetTime = "";
  values.autoResetOff = false;
  image.ResetTimeBlock[0] = 9;
  Collect();
  EXPECT_EQ(LowerBandLimit(image.BandBlock), 440);
  EXPECT_EQ(UpperBandLimit(image.BandBlock), 470);
  EXPECT_EQ(image.ResetTimeBlock[0], 9);
}

TEST_F(DecodeEncodeTest, KeyBytes) {
  for (const Row& row : RowsOf(CASES "key_bytes.txt", "[^:]+: (.*) -> (.*) -> (.*)")) {
    SCOPED_TRACE(row[0]);
    SetUp();
    std::ranges::copy(BytesOf(row[1]), image.KeyProgramBlock.begin());
    std::string shown = Fill().keyConflict ? "conflict" : "fine";
    for (const int position : values.keys.selection)
      shown += position == KeyNoSelection ? " none" : ' ' + std::to_string(position);
    EXPECT_EQ(shown, row[2]);
    Collect();
    EXPECT_TRUE(std::ranges::equal(BytesOf(row[3]), std::span(image.KeyProgramBlock).first<6>()));
  }
}

TEST_F(DecodeEncodeTest, AStandardOfZeroEndsTheFill) {
  image.ResetTimeBlock = {9, 70, 0};
  Settings()[2] = 0x00;
  image.ToneFrequencyBlock.fill(0x11);
  EXPECT_EQ(Fill().end, DecodeEnd::DataError);
  EXPECT_EQ(image.ResetTimeBlock[2], 1);
  EXPECT_EQ(image.ToneFrequencyBlock[0], 0x11);
  EXPECT_EQ(TextOf(values, ChoiceList::SelectCall), "5 Tone");
  EXPECT_EQ(Fill().end, DecodeEnd::Complete);
  EXPECT_EQ(values.autoResetTime, "9");
  EXPECT_FALSE(values.autoResetOff);
  image.ResetTimeBlock[0] = 0;
  Fill();
  EXPECT_TRUE(values.autoResetOff);
  EXPECT_EQ(values.autoResetTime, "5"); // that of a new box
}

TEST_F(DecodeEncodeTest, FiveToneModeStoresTheChosenStandard) {
  Settings()[2] = 0x00;
  ApplyStandard(image, 10);
  image.TtsTimingBlock.bytes.fill(77); // not kept in this mode
  Fill();
  EXPECT_EQ(values.Tts(1, TtsColumn::GapTime), "0.5");
  values[ChoiceList::Standards].position = 6; // CCIR1
  Collect();
  EXPECT_EQ(image.ResetTimeBlock[1], 100);
  EXPECT_EQ(image.ResetTimeBlock[2], 7);
  EXPECT_EQ(image.ToneFrequencyBlock[2] + 256 * image.ToneFrequencyBlock[3], 1124);
}

TEST_F(DecodeEncodeTest, AStandardWithoutANameKeepsItsTones) {
  Settings()[2] = 0x00;
  image.ResetTimeBlock = {0, 55, 12};
  image.ToneFrequencyBlock.fill(0x11);
  Fill();
  EXPECT_EQ(TextOf(values, ChoiceList::Standards), "");
  Collect();
  EXPECT_EQ(image.ResetTimeBlock, (std::array<std::uint8_t, 8>{0, 55, 12}));
  EXPECT_EQ(image.ToneFrequencyBlock[31], 0x11);
  EXPECT_EQ(image.FiveToneStandard, 12);
}

} // namespace
} // namespace mr4500x
