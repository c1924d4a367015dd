#include "configuration.h"

#include "function_settings.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace mr4500x {
namespace {

constexpr LocalTime Moment = {2026, 1, 2, 3, 4, 5};

class EditorValuesTest : public testing::Test {
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

TEST_F(EditorValuesTest, ANewImageShowsItsDefaults) {
  const std::array<std::string_view, ChoiceListCount> expected = {
      "TTS", "ON",  "OFF", "OFF",  "60s", "2",    "ON",   "50ms",       "50ms",    "OFF",
      "OFF", "OFF", "CO",  "0.5s", "OFF", "0.5s", "0.5s", "Current CH", "Disable", "ZVEI1"};
  for (std::size_t list = 0; list < ChoiceListCount; ++list) {
    EXPECT_EQ(TextOf(values, static_cast<ChoiceList>(list)), expected[list]) << list;
  }
  EXPECT_EQ(values.lowerBandLimit, "440");
  EXPECT_EQ(values.upperBandLimit, "470");
  EXPECT_EQ(values.emergencyAni, "----------------");
  EXPECT_EQ(values.identityNumber, "----------------");
  EXPECT_TRUE(values.autoResetOff);
  EXPECT_EQ(values.autoResetTime, "5");
  EXPECT_EQ(values.Tts(8, TtsColumn::ToneBFreq), "2855");
  EXPECT_EQ(values.Tts(8, TtsColumn::GroupCallDur), "0.5");
  EXPECT_FALSE(values.channels[0].noCh);
  EXPECT_TRUE(values.channels[1].noCh);
  EXPECT_EQ(KeyTextOf(values, LongC), "Unassigned");
}

// A block byte and what its fill shows, read straight from the layouts.
TEST_F(EditorValuesTest, EachListReadsItsOwnBits) {
  struct {
    ChoiceList list;
    std::size_t byte;
    std::uint8_t value;
    const char* text;
  } const cases[] = {
      {ChoiceList::BeepTone, 0, 0x80, "ON"},
      {ChoiceList::Compander, 0, 0x40, "ON"},
      {ChoiceList::BusyChLock, 0, 0x20, "Signal"},
      {ChoiceList::BeepEnable, 0, 0x10, "ON"},
      {ChoiceList::VoxSensivity, 0, 0x0C, "3"},
      {ChoiceList::SquelchLevel, 0, 0x03, "3"},
      {ChoiceList::SquelchLevel, 0, 0x00, ""},
      {ChoiceList::BatterySave, 1, 0x70, "35s"},
      {ChoiceList::TxTot, 1, 0x01, "30s"},
      {ChoiceList::TxTot, 1, 0x0A, "300s"},
      {ChoiceList::TxTot, 1, 0x0B, ""},
      {ChoiceList::SelectCall, 2, 0x7F, "5 Tone"},
      {ChoiceList::ScanMode, 3, 0x80, "TO"},
      {ChoiceList::PriorityCh, 3, 0x4F, "CH16"},
      {ChoiceList::PriorityCh, 3, 0x0F, "OFF"},
      {ChoiceList::RevertCh, 3, 0x20, "Priority CH"},
      {ChoiceList::RevertCh, 3, 0x30, ""},
      {ChoiceList::ToScanDelay, 4, 100, "10s"},
      {ChoiceList::ToScanDelay, 4, 7, "0.5s"},
      {ChoiceList::ToScanDelay, 4, 8, "1.0s"},
      {ChoiceList::ToScanDelay, 4, 103, ""},
      {ChoiceList::ToScanDelay, 4, 2, ""},
      {ChoiceList::RestoreTime, 5, 95, "9.5s"},
      {ChoiceList::LookBack, 6, 3, "0.3s"},
      {ChoiceList::LookBack, 6, 50, "5.0s"},
      {ChoiceList::LookBack, 6, 51, ""},
      {ChoiceList::DigitTime, 7, 20, "200ms"},
      {ChoiceList::InterDigitTime, 8, 4, ""},
      {ChoiceList::PttId, 9, 0xC0, "Both"},
      {ChoiceList::ManualTune, 13, 0x7F, "Enable"},
  };
  for (const auto& c : cases) {
    Settings()[c.byte] = c.value;
    Fill();
    EXPECT_EQ(TextOf(values, c.list), c.text) << c.byte << ": " << int{c.value};
    SetUp();
  }
  Settings()[0] = 0x20;
  Settings()[14] = 0x40;
  Fill();
  EXPECT_EQ(TextOf(values, ChoiceList::BusyChLock), "Carrier");
}

TEST_F(EditorValuesTest, CollectNormalisesOnlyWhatItMust) {
  Settings() = {0x5C, 0xA3, 0xFF, 0x8F, 7, 100, 0xFF, 0x04, 0x15, 0x7F, 0xE3, 0xE4, 9, 0xFF, 0xF1, 0xAA};
  image.PttIdBlock = {0x21, 0x03, 9, 9, 9, 9, 9, 9, 0x54, 0x06};
  image.RadioIdBlock.fill('7');
  image.BandBlock[7] = 0x77;
  Fill();
  EXPECT_EQ(values.connectId, "123");
  EXPECT_EQ(values.disconnectId, "----------------"); // "PTT ID" is "Connect ID" alone
  Collect();
  // Squelch 0 stays 0; byte 1 loses bit 7; byte 3 its channel without a priority; scan delay 7 becomes 5; the look back
  // and digit times without an item stay; the Disconnect length goes; byte 14 loses bit 5 and, with the lock off,
  // bit 6.
  EXPECT_EQ(Settings(), (std::array<std::uint8_t, 16>{0x5C, 0x23, 0xFF, 0x80, 5, 100, 0xFF, 0x04, 0x15, 0x7F, 0xE3,
                                                      0xE0, 1, 0xFF, 0x90, 0xAA}));
  EXPECT_EQ(image.PttIdBlock, (std::array<std::uint8_t, 16>{0x21, 0x03, 9, 9, 9, 9, 9, 9, 0x54, 0x06}));
  EXPECT_EQ(image.RadioIdBlock, (std::array<std::uint8_t, 16>{}));
  EXPECT_EQ(image.BandBlock, (std::array<std::uint8_t, 8>{0xB8, 0x01, 0xD6, 0x01, 0x00, 0x30, 0x00, 0x77}));
}

TEST_F(EditorValuesTest, NumbersAreStoredAsThePttIdAsks) {
  values[ChoiceList::PttId].position = 1;
  values.connectId = "12-";
  values.disconnectId = "456";
  values.emergencyAni = "0123456789ABCD*#";
  Collect();
  EXPECT_EQ(Settings()[10], 3);
  EXPECT_EQ(Settings()[11], 0);
  EXPECT_EQ(Settings()[14], 16);
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
  EXPECT_EQ(image.PttIdBlock[9], 0x06);
}

struct KeyBytesCase {
  std::array<std::uint8_t, 6> stored;
  std::array<int, 6> selection;
  std::array<std::uint8_t, 6> collected;
  bool conflict;
};

TEST_F(EditorValuesTest, KeyBytes) {
  const KeyBytesCase cases[] = {
      {{0xC1, 0xC2, 0xC0, 0x00, 0xC5, 0x00}, {1, 1, 1, 0, 1, 0}, {0xC1, 0xC2, 0xC0, 0x00, 0xC0, 0x00}, false},
      {{0x83, 0x8A, 0x88, 0x83, 0x40, 0x8A}, {2, 9, 7, 1, 0, 0}, {0x83, 0x8A, 0x88, 0x83, 0x00, 0x00}, false},
      {{0x83, 0x8A, 0x88, 0x83, 0x00, 0x8A}, {2, 9, 7, 1, 0, 8}, {0x83, 0x8A, 0x88, 0x83, 0x00, 0x8A}, false},
      {{0x00, 0xC2, 0x00, 0x00, 0x00, 0x00}, {0, 1, 0, 0, 0, 0}, {0xC1, 0xC2, 0x00, 0x00, 0x00, 0x00}, false},
      {{0xC1, 0x00, 0x00, 0x00, 0x00, 0x00},
       {0, 0, 0, 0, 0, 0},
       {0x00, 0x00, 0x00, 0x00, 0x00, 0x00},
       false}, // half a pair
      {{0x86, 0x00, 0x00, 0x87, 0x87, 0x00}, {5, 0, 0, 0, 0, 0}, {0x86, 0x00, 0x00, 0x00, 0x00, 0x00}, true},
      // codes without an item: no selection, and the same bytes after a collect
      {{0x80, 0x81, 0x82, 0x82, 0x8B, 0x8F}, {-1, -1, -1, -1, -1, -1}, {0x80, 0x81, 0x82, 0x82, 0x8B, 0x8F}, false},
      {{0x00, 0x00, 0x00, 0xC4, 0x00, 0xFF}, {0, 0, 0, -1, 0, -1}, {0x00, 0x00, 0x00, 0xC4, 0x00, 0xFF}, false},
      {{0x00, 0x00, 0xC0, 0x83, 0x00, 0x00}, {0, 0, 1, 0, 0, 0}, {0x00, 0x00, 0xC0, 0x00, 0x00, 0x00}, false},
  };
  for (const KeyBytesCase& c : cases) {
    SetUp();
    std::copy(c.stored.begin(), c.stored.end(), image.KeyProgramBlock.begin());
    image.KeyProgramBlock[6] = 0x66;
    EXPECT_EQ(Fill().keyConflict, c.conflict);
    EXPECT_EQ(values.keys.selection, c.selection) << int{c.stored[0]};
    Collect();
    EXPECT_TRUE(std::equal(c.collected.begin(), c.collected.end(), image.KeyProgramBlock.begin())) << int{c.stored[0]};
    EXPECT_EQ(image.KeyProgramBlock[6], 0x66);
  }
  values.keys = {};
  static_cast<void>(SelectKey(values.keys, LongB, 1));
  static_cast<void>(SelectKey(values.keys, ShortB, KeySpecial));
  Collect();
  EXPECT_EQ(image.KeyProgramBlock[3], 0x00);  // "Monitor" silences the list
  EXPECT_EQ(values.keys.selection[LongB], 1); // which still shows its choice
  values.keys = {};
  static_cast<void>(SelectKey(values.keys, LongA, KeySpecial));
  static_cast<void>(SelectKey(values.keys, ShortA, 2));
  values.keys.selection[LongA] = KeySpecial; // as the rules' order can leave it
  Collect();
  EXPECT_EQ(image.KeyProgramBlock[0], 0xC1);
  EXPECT_EQ(image.KeyProgramBlock[1], 0xC2);
  EXPECT_EQ(values.keys.selection[ShortA], KeySpecial);
}

TEST_F(EditorValuesTest, AStandardOfZeroEndsTheFill) {
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
}

TEST_F(EditorValuesTest, FiveToneModeShowsTheDefaultTableAndStoresTheStandard) {
  Settings()[2] = 0x00;
  ApplyStandard(image, 10);
  image.TtsTimingBlock.bytes.fill(77);
  Fill();
  EXPECT_EQ(values.Tts(1, TtsColumn::ToneAFreq), "400");
  EXPECT_EQ(values.Tts(1, TtsColumn::GapTime), "0.5");
  EXPECT_EQ(TextOf(values, ChoiceList::Standards), "EEA");
  values[ChoiceList::Standards].position = 6; // CCIR1
  Collect();
  EXPECT_EQ(image.ResetTimeBlock[1], 100);
  EXPECT_EQ(image.ResetTimeBlock[2], 7);
  EXPECT_EQ(image.FiveToneStandard, 7);
  EXPECT_EQ(image.ToneFrequencyBlock[2] + 256 * image.ToneFrequencyBlock[3], 1124);
  EXPECT_EQ(image.TtsTimingBlock.bytes[0], 5);
}

TEST_F(EditorValuesTest, AStandardWithoutANameKeepsItsTones) {
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

// Random bytes everywhere: what one fill and collect has made of them, the next leaves alone; and the editor shows
// the same before and after. Values without an item or a text survive both.
TEST_F(EditorValuesTest, RandomImagesSettleAfterOneCollect) {
  std::mt19937 random(5);
  for (int round = 0; round < 300; ++round) {
    for (const BlockPlace& place : RecordMap) {
      for (std::uint8_t& byte : BlockBytes(image, place.block)) {
        byte = static_cast<std::uint8_t>(random());
      }
    }
    if (image.ResetTimeBlock[2] == 0) image.ResetTimeBlock[2] = 12;
    const RadioImage received = image;
    Fill();
    Collect();
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
      // The kept bits, and the CTCSS positions outside the table.
      EXPECT_EQ(image.ChannelBlock(channel, 0) & 0x08, received.ChannelBlock(channel, 0) & 0x08);
      EXPECT_EQ(image.ChannelBlock(channel, 12), received.ChannelBlock(channel, 12));
      EXPECT_EQ(image.ChannelBlock(channel, 4), received.ChannelBlock(channel, 4));
    }
    EXPECT_EQ(image.SelCallCodeBlock(3, 6), received.SelCallCodeBlock(3, 6));
    const RadioImage settled = image;
    const Configuration shown = values;
    EXPECT_FALSE(Fill().keyConflict);
    for (std::size_t key = 0; key < KeyCount; ++key) {
      if (!LongPressEnabled(shown.keys, key)) continue;
      EXPECT_EQ(KeyTextOf(values, key), KeyTextOf(shown, key)) << key;
    }
    Collect();
    EXPECT_EQ(image, settled);
  }
}

} // namespace
} // namespace mr4500x
