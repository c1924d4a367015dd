#include "editor_fixture.h"
#include "function_settings.h"

#include <random>

namespace mr4500x {
namespace {

struct PanelTest : EditorTest {
  QTableWidget& channels = Get<QTableWidget>("gridChannel");
};

// The window loses, adds and turns nothing over: through its controls an image becomes what it becomes without them.
TEST_F(PanelTest, FillAndCollectThroughTheControls) {
  std::mt19937 random(6);
  int conflicts = 0;
  for (int round = 0; round < 200; ++round) {
    for (const BlockPlace& place : RecordMap) {
      for (std::uint8_t& byte : BlockBytes(image, place.block))
        byte = static_cast<std::uint8_t>(random());
    }
    for (std::uint8_t& key : image.KeyProgramBlock)
      if (random() % 2 == 0) key = std::array<std::uint8_t, 4>{0x86, 0x87, 0xC0, 0x8A}[random() % 4]; // keys with rules
    image.ResetTimeBlock[StandardByte] = static_cast<std::uint8_t>(1 + random() % 12);
    if (round % 2 == 0) image.ResetTimeBlock[0] = 0;
    RadioImage expected = image;
    const Decoded result = Decode(expected, texts);
    SettleAfterFill(expected);
    Encode(result.configuration, expected, texts);
    if (round % 2 == 0) expected.ResetTimeBlock[0] = 0;

    EXPECT_EQ(panel.Fill(), DecodeEnd::Complete);
    EXPECT_EQ(messages.Taken().size(), result.keyConflict ? 1U : 0U) << round;
    conflicts += result.keyConflict ? 1 : 0;
    panel.Collect();
    ASSERT_EQ(image, expected) << round;
  }
  EXPECT_GT(conflicts, 10);
}

TEST_F(PanelTest, AnInvalidStandardEndsTheFillWithAMessage) {
  image.ResetTimeBlock = {7, 1, 0};
  image.RadioSettingsBlock[0] = 0x03;
  EXPECT_EQ(panel.Fill(), DecodeEnd::DataError);
  EXPECT_EQ(messages.shown, Lines{"!|Data Error|Data occur error in the Radio, please re-set."});
  EXPECT_EQ(List("cboRadio(5)").currentText(), "3");
  EXPECT_EQ(Text("txtResetTime"), "5 disabled"); // not filled any more
}

constexpr int RxSelCall = 3, TxFreq = 6, TxSelCall = 9, GroupCall = 13; // columns of the table

TEST_F(PanelTest, AnotherModeResetsTheSelectiveCallsAndTakesItsTableIntoUse) {
  image.ChannelBlock(0, 0) |= 0x04;
  image.ChannelBlock(0, 13) = 3;
  image.ChannelBlock(0, 15) = 0x11;
  panel.Fill();
  panel.ShowFunctionView();
  auto& mode = List("cboRadio(0)");
  EXPECT_EQ(Cell(channels, 0, RxSelCall), "TTS 3");
  Click(ttsTable, 4, 1);
  QTest::keyClicks(&Box("txtTTSFreq"), "700");
  for (const bool fiveTone : {true, false}) {
    mode.setCurrentIndex(fiveTone ? 1 : 0);
    EXPECT_TRUE(List("cboFive").isEnabled() == fiveTone && ttsTable.isEnabled() == !fiveTone);
    EXPECT_TRUE(Box("txtTTSFreq").isHidden() && Cell(ttsTable, 4, 1) == "675") << "the open editor is dropped";
    for (const int column : {RxSelCall, GroupCall}) {
      EXPECT_EQ(Cell(channels, 0, column), "OFF") << column;
      channels.item(0, column)->setText("TTS 3");
    }
    mode.setCurrentIndex(fiveTone ? 1 : 0);
    EXPECT_EQ(Cell(channels, 0, RxSelCall), "TTS 3") << "the mode is the same";
  }
}

// The image still holds the codes of the mode that it was filled with.
TEST_F(PanelTest, ANewLowerLimitStartsTheChannelsAnewIfTheUserAgrees) {
  WriteSetting(image, Setting::SelcallMode, 0);
  image.ChannelBlock(0, 0) |= 0x04;
  image.SelCallCodeBlock.bytes.fill(0x33);
  panel.Fill();
  EXPECT_EQ(Cell(channels, 0, RxSelCall), "5T 33333");
  List("cboRadio(0)").setCurrentText("TTS");
  for (const bool yes : {false, true}) {
    messages.answer = yes ? Answer::Yes : Answer::No;
    Type("txtFreqBandL", "100");
    GoElsewhere();
    EXPECT_EQ(messages.Taken(), Lines{"!|Frequency Band Change|Change the lower limit value, all data will be "
                                      "initiated. Do you want to continue?|YN"});
    EXPECT_EQ(Text("txtFreqBandL"), yes ? "136" : "440");
    EXPECT_EQ(Cell(channels, 9, TxFreq), yes ? "136.00000" : "440.00000") << yes;
    for (const int column : {RxSelCall, TxSelCall, GroupCall})
      EXPECT_EQ(Cell(channels, 0, column), "OFF") << column;
  }
  Type("txtFreqBandL", "");
  GoElsewhere();
  EXPECT_EQ(Text("txtFreqBandL"), "440") << "the remembered value is still the filled one";
}

} // namespace
} // namespace mr4500x
