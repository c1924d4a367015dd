#include "configuration.h"

#include "function_settings.h"

#include <gtest/gtest.h>

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

// What a list has no item for, what lies between two, and what another bit says.
TEST_F(DecodeEncodeTest, OddBytesOfTheLists) {
  const struct {
    ChoiceList list;
    std::size_t byte;
    std::uint8_t value;
    const char* text;
  } cases[] = {
      {ChoiceList::SquelchLevel, 0, 0x00, ""}, {ChoiceList::TxTot, 1, 0x0A, "300s"},
      {ChoiceList::TxTot, 1, 0x0B, ""},        {ChoiceList::PriorityCh, 3, 0x0F, "OFF"},
      {ChoiceList::RevertCh, 3, 0x30, ""},     {ChoiceList::ToScanDelay, 4, 2, ""},
      {ChoiceList::ToScanDelay, 4, 7, "0.5s"}, {ChoiceList::ToScanDelay, 4, 8, "1.0s"},
      {ChoiceList::ToScanDelay, 4, 103, ""},   {ChoiceList::LookBack, 6, 50, "5.0s"},
      {ChoiceList::LookBack, 6, 51, ""},       {ChoiceList::DigitTime, 7, 20, "200ms"},
      {ChoiceList::InterDigitTime, 8, 4, ""},  {ChoiceList::BusyChLock, 14, 0x40, "OFF"},
  };
  for (const auto& c : cases) {
    SetUp();
    Settings()[c.byte] = c.value;
    Fill();
    EXPECT_EQ(TextOf(values, c.list), c.text) << "byte " << c.byte << " is " << int{c.value};
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
  constexpr int none = KeyNoSelection;
  const struct {
    const char* name;
    std::array<std::uint8_t, 6> stored;
    std::array<int, 6> selection;
    std::array<std::uint8_t, 6> collected;
    bool conflict;
  } cases[] = {
      {"special", {0xC1, 0xC2, 0xC0, 0, 0xC5, 0}, {1, 1, 1, 0, 1, 0}, {0xC1, 0xC2, 0xC0, 0, 0xC0, 0}, false},
      {"bit 6 alone", {0x83, 0x8A, 0x88, 0x83, 0x40, 0x8A}, {2, 9, 7, 1, 0, 0}, {0x83, 0x8A, 0x88, 0x83, 0, 0}, false},
      {"Cancel alone", {0, 0xC2, 0, 0, 0, 0}, {0, 1, 0, 0, 0, 0}, {0xC1, 0xC2, 0, 0, 0, 0}, false},
      {"Emergency Alert alone", {0xC1, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0}, false},
      {"conflict", {0x86, 0, 0, 0x87, 0x87, 0}, {5, 0, 0, 0, 0, 0}, {0x86, 0, 0, 0, 0, 0}, true},
      {"codes without an item",
       {0x80, 0x81, 0x82, 0x82, 0x8B, 0x8F},
       {none, none, none, none, none, none},
       {0x80, 0x81, 0x82, 0x82, 0x8B, 0x8F},
       false},
      {"special long B and C", {0, 0, 0, 0xC4, 0, 0xFF}, {0, 0, 0, none, 0, none}, {0, 0, 0, 0xC4, 0, 0xFF}, false},
      {"under Monitor", {0, 0, 0xC0, 0x83, 0, 0}, {0, 0, 1, 0, 0, 0}, {0, 0, 0xC0, 0, 0, 0}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SetUp();
    std::ranges::copy(c.stored, image.KeyProgramBlock.begin());
    EXPECT_EQ(Fill().keyConflict, c.conflict);
    EXPECT_EQ(values.keys.selection, c.selection);
    Collect();
    EXPECT_TRUE(std::ranges::equal(c.collected, std::span(image.KeyProgramBlock).first<6>()));
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
