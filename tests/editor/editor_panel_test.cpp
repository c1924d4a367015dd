#include "editor_panel.h"

#include "editor_fixture.h"
#include "function_settings.h"

#include <QLabel>
#include <QScrollArea>
#include <QTableView>

#include <map>
#include <random>

namespace mr4500x {
namespace {

constexpr LocalTime Moment = {2026, 1, 2, 3, 4, 5};

struct EditorPanelTest : testing::Test {
  RadioImage image;
  FieldTexts texts = BuildFieldTexts('.');
  ScriptedMessages messages;
  EditorPanel panel{image, texts, messages};

  void SetUp() override {
    panel.FillReset(Moment);
    panel.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
  }
  template<typename Control>
  Control& Find(const char* objectName) {
    auto* const control = panel.findChild<Control*>(QLatin1String(objectName));
    if (control == nullptr) throw std::runtime_error(objectName);
    return *control;
  }
  std::string Cell(int row, GridColumn column) {
    const RadioImage before = image;
    panel.Collect();
    std::string text = TextsOfChannel(image, static_cast<std::size_t>(row), texts)[column];
    image = before;
    return text;
  }
};

// The window loses, adds and turns nothing over: through its controls an image becomes what it becomes without them.
TEST_F(EditorPanelTest, FillAndCollectThroughTheControls) {
  std::mt19937 random(6);
  int conflicts = 0;
  for (int round = 0; round < 200; ++round) {
    for (const BlockPlace& place : RecordMap) {
      for (std::uint8_t& byte : BlockBytes(image, place.block)) {
        byte = static_cast<std::uint8_t>(random());
      }
    }
    for (std::uint8_t& key : image.KeyProgramBlock) {
      if (random() % 2 == 0) key = std::array<std::uint8_t, 4>{0x86, 0x87, 0xC0, 0x8A}[random() % 4]; // keys with rules
    }
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

TEST_F(EditorPanelTest, AnInvalidStandardEndsTheFillWithAMessage) {
  image.ResetTimeBlock = {7, 1, 0};
  image.RadioSettingsBlock[0] = 0x03;
  EXPECT_EQ(panel.Fill(), DecodeEnd::DataError);
  EXPECT_EQ(messages.shown, (ShownMessages{{MessageIcon::Exclamation, "Data Error",
                                            "Data occur error in the Radio, please re-set.", MessageButtons::Ok}}));
  EXPECT_EQ(Find<QComboBox>("cboRadio(5)").currentText(), "3");
  EXPECT_EQ(Find<QLineEdit>("txtResetTime").text(), "5"); // not filled any more
  EXPECT_TRUE(panel.updatesEnabled());
}

TEST_F(EditorPanelTest, AnotherModeResetsTheSelectiveCalls) {
  image.ChannelBlock(0, 0) |= 0x04;
  image.ChannelBlock(0, 13) = 3;
  image.ChannelBlock(0, 15) = 0x11;
  panel.Fill();
  panel.ShowFunctionView();
  EXPECT_EQ(Cell(0, GridColumn::RxSelCall), "TTS 3");
  auto& mode = Find<QComboBox>("cboRadio(0)");
  mode.setCurrentIndex(0);
  EXPECT_EQ(Cell(0, GridColumn::RxSelCall), "TTS 3");
  QTest::keyClick(&mode, Qt::Key_Down);
  EXPECT_EQ(mode.currentText(), "5 Tone");
  EXPECT_TRUE(Find<QComboBox>("cboFive").isEnabled());
  EXPECT_FALSE(Find<QWidget>("gridTTS").isEnabled());
  EXPECT_EQ(Cell(0, GridColumn::RxSelCall), "OFF");
  EXPECT_EQ(Cell(0, GridColumn::GroupCall), "OFF");
}

TEST_F(EditorPanelTest, ANewLowerLimitStartsTheChannelsAnew) {
  image.ChannelBlock(5, 0) = 0x81;
  panel.Fill();
  auto& lower = Find<QLineEdit>("txtFreqBandL");
  for (const bool yes : {false, true}) {
    messages.answer = yes ? Answer::Yes : Answer::No;
    lower.setFocus();
    lower.selectAll();
    QTest::keyClicks(&lower, "136");
    Find<QLineEdit>("txtFreqBandU").setFocus();
    EXPECT_EQ(lower.text(), yes ? "136" : "440");
    panel.Collect();
    EXPECT_EQ(image.RadioSettingsBlock[12], yes ? 1 : 2); // channels in use
    EXPECT_EQ(TextsOfChannel(image, 9, texts)[GridColumn::TxFreq], yes ? "136.00000" : "440.00000");
  }
}

TEST_F(EditorPanelTest, EachListStandsBesideItsLabel) {
  const std::pair<const char*, const char*> labels[] = {
      {"cboRadio(0)", "Select Call"},   {"cboRadio(1)", "Beep Tone"},      {"cboRadio(2)", "Battery Save"},
      {"cboRadio(3)", "Busy CH Lock"},  {"cboRadio(4)", "Tx TOT"},         {"cboRadio(5)", "Squelch Level"},
      {"cboRadio(6)", "Compander"},     {"cboRadio(7)", "Digit Time"},     {"cboRadio(8)", "Inter Digit Time"},
      {"cboRadio(9)", "PTT ID"},        {"cboRadio(10)", "VOX Sensivity"}, {"cboRadio(11)", "Beep Enable"},
      {"cboScan(0)", "Scan Mode"},      {"cboScan(1)", "TO Scan Delay"},   {"cboScan(3)", "Priority CH"},
      {"cboScan(4)", "Look Back"},      {"cboScan(5)", "Restore Time"},    {"cboScan(6)", "Revert CH"},
      {"cboTuneSwitch", "Manual Tune"}, {"cboFive", "Standards"},          {"cboKey(0)", "Short A"},
      {"cboKey(5)", "Long C"},          {"txtANI", "Emerge ANI "},         {"txtDisconnect", "Disconnect ID"}};
  std::map<QString, QString> shown;
  for (const QLabel* const label : panel.findChildren<QLabel*>()) {
    if (label->buddy() != nullptr) shown[label->buddy()->objectName()] = label->text();
  }
  for (const auto& [control, label] : labels) {
    EXPECT_EQ(shown[control], label) << control;
  }
}

// The image still holds the codes of the mode that it was filled with.
TEST_F(EditorPanelTest, ANewLowerLimitEmptiesTheSelectiveCallCells) {
  WriteSetting(image, Setting::SelcallMode, 0);
  image.ChannelBlock(0, 0) |= 0x04;
  image.SelCallCodeBlock.bytes.fill(0x33);
  panel.Fill();
  EXPECT_EQ(Cell(0, GridColumn::RxSelCall), "5T 33333");
  Find<QComboBox>("cboRadio(0)").setCurrentText("TTS");
  auto& lower = Find<QLineEdit>("txtFreqBandL");
  messages.answer = Answer::Yes;
  lower.setFocus();
  lower.selectAll();
  QTest::keyClicks(&lower, "136");
  Find<QLineEdit>("txtFreqBandU").setFocus();
  const auto& grid = *Find<QTableView>("gridChannel").model();
  for (const GridColumn column : {GridColumn::RxSelCall, GridColumn::TxSelCall, GridColumn::GroupCall})
    EXPECT_EQ(grid.index(0, static_cast<int>(column) - 1).data().toString(), "OFF") << static_cast<int>(column);
}

TEST_F(EditorPanelTest, TheCurrentCellStaysInSightInASmallWindow) {
  QScrollArea small;
  small.setWidget(new EditorPanel(image, texts, messages));
  small.resize(500, 400);
  small.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&small));
  auto* const grid = small.findChild<QTableView*>("gridChannel");
  QTest::keyClick(grid, Qt::Key_End);
  const QRect cell = grid->visualRect(grid->currentIndex());
  EXPECT_TRUE(small.viewport()->rect().contains(grid->viewport()->mapTo(small.viewport(), cell.center())));
}

TEST_F(EditorPanelTest, AClickOnTheBackgroundEndsEveryEdit) {
  auto& grid = Find<QTableView>("gridChannel");
  const QModelIndex cell = grid.model()->index(0, 0);
  auto& editor = Find<QLineEdit>("txtChFreq");
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(cell).center());
  if (!editor.isVisible()) FAIL() << "the frequency editor did not open";
  QTest::keyClicks(&editor, "450.1");
  QTest::mouseClick(&panel, Qt::LeftButton, {}, QPoint(panel.width() - 2, 2));
  EXPECT_FALSE(editor.isVisible());
  EXPECT_EQ(Cell(0, GridColumn::RxFreq), "450.10000");
  EXPECT_EQ(QApplication::focusWidget(), &Find<QWidget>("Command1"));
}

} // namespace
} // namespace mr4500x
