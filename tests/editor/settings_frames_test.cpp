// The settings under keys and clicks: what their boxes take, refuse and tell, and what one means for another.
#include "field_rules.h"
#include "key_rules.h"
#include "panel_fixture.h"

#include <QCheckBox>
#include <QSpinBox>

namespace mr4500x {
namespace {

struct SettingsTest : EditorPanelTest {
  SettingsTest() {
    panel.ShowFunctionView();
    off.setChecked(false);
    changed.clear();
  }
  QSpinBox& arrows = window.Get<QSpinBox>("vsbResetTime");
  QCheckBox& off = window.Get<QCheckBox>("chkResetTimeOFF");
};

// Typed or pasted into the box, checked by a key or by the focus that leaves, what the box shows then and the message.
TEST_F(SettingsTest, EveryBoxLimitsOrRefusesItsEntry) {
  const char *const lower = "txtFreqBandL", *const upper = "txtFreqBandU", *const time = "txtResetTime";
  const char* const upperInvalid = "The upper limit value is invalid!";
  constexpr auto leave = Qt::Key_unknown, arrowUp = Qt::Key_F1, arrowDown = Qt::Key_F2;
  const char* const none = NoNumberText.data();
  const std::tuple<const char*, const char*, const char*, Qt::Key, const char*, const char*> cases[] = {
      {lower, "4x7-09", "", leave, "440", "The lower limit value must be less than the upper limit value!"},
      {lower, "", "", leave, "440", "The lower limit value is invalid!"},
      {lower, "99", "", Qt::Key_Down, "136", ""},
      {lower, "470", "", Qt::Key_Up, "440", ""},
      {lower, "", "", Qt::Key_Up, "440", "The lower limit value of frequency band is invalid!"},
      {upper, "999", "", leave, "520", ""},
      {upper, "440", "", leave, "470", "The upper limit value must be more than the lower limit value!"},
      {upper, "", "", leave, "470", upperInvalid},
      {upper, "440", "", Qt::Key_Up, "441", ""},
      {upper, "521", "", Qt::Key_Down, "520", ""},
      {upper, "", "", Qt::Key_Down, "420", upperInvalid},
      {"txtANI", "a1*xe-#.D 01234567890A", "", leave, "A1*#D01234567890", ""},
      {"txtANI", "", "12x3", leave, none, "Emergency ANI Invalid!"},
      {"txtConnect", "", "12x3", leave, none, "Connect ID Invalid!"},
      {"txtDisconnect", "", "12x3", leave, none, "Disconnect ID Invalid!"},
      {time, "12a-.3", "", leave, "123", ""},
      {time, "0", "", leave, "1 disabled", ""},
      {time, "256", "", Qt::Key_Enter, "255", ""},
      {time, "5", "", Qt::Key_Up, "6", ""},
      {time, "1", "", Qt::Key_Down, "1 disabled", ""},
      {time, "", "", Qt::Key_Down, "1", "Auot Reset Time Invalid!"},
      {time, "5", "", arrowUp, "6", ""},
      {time, "1", "", arrowDown, "1", ""},
      {time, "", "", arrowUp, "1", "Auto Reset Time Invalid!"},
  };
  for (const auto& [name, typed, pasted, key, becomes, error] : cases) {
    SCOPED_TRACE(std::string(name) + " '" + typed + pasted + "' key " + std::to_string(key));
    panel.FillReset({});
    window.List("cboRadio(9)").setCurrentText("Both");
    off.setChecked(false);
    name == lower || name == upper ? panel.ShowChannelView() : panel.ShowFunctionView();
    QLineEdit& box = window.Type(name, typed);
    if (*pasted != 0) box.insert(pasted);
    const QPoint arrow(arrows.width() / 2, arrows.height() * (key == arrowUp ? 1 : 3) / 4);
    if (key == arrowUp || key == arrowDown)
      QTest::mouseClick(&arrows, Qt::LeftButton, {}, arrow);
    else
      key == leave ? window.GoElsewhere() : QTest::keyClick(&box, key);
    EXPECT_EQ(window.Text(name) + (box.isEnabled() ? "" : " disabled"), becomes);
    EXPECT_EQ(messages.Taken(), ErrorMessage(error));
  }
}

TEST_F(SettingsTest, PttIdDecidesWhichIdBoxesAreInUse) {
  QComboBox& pttId = window.List("cboRadio(9)");
  const std::tuple<const char*, bool, bool> cases[] = {
      {"Connect ID", true, false}, {"Disconnect ID", false, true}, {"OFF", false, false}};
  for (const auto& [choice, connect, disconnect] : cases) {
    for (const auto& [name, used] : {std::pair{"txtConnect", connect}, std::pair{"txtDisconnect", disconnect}}) {
      pttId.setCurrentText("Both");
      window.Type(name, "12");
      pttId.setCurrentText(choice);
      const std::string shown = window.Text(name) + (window.Box(name).isEnabled() ? "" : " disabled");
      EXPECT_EQ(shown, used ? "12" : std::string(NoNumberText) + " disabled") << name << " at " << choice;
    }
  }
}

TEST_F(SettingsTest, EachChangeIsToldOnceButNoTypedId) {
  window.Type("txtANI", "12");
  EXPECT_EQ(changed.count(), 0);
  window.Type("txtResetTime", "12");
  QTest::mouseClick(&off, Qt::LeftButton, {}, {8, off.height() / 2});
  EXPECT_EQ(changed.count(), 4);
  EXPECT_FALSE(window.Box("txtResetTime").isEnabled() || arrows.isEnabled());
  image.ResetTimeBlock = {0, 1, 9};
  panel.Fill();
  EXPECT_EQ(window.Text("txtResetTime"), "12") << "a fill under OFF leaves the text";
  for (const char* const list : {"cboRadio(0)", "cboRadio(1)", "cboScan(0)", "cboKey(0)", "cboFive"}) {
    changed.clear();
    window.Pick(list, window.List(list).currentIndex() == 1 ? 0 : 1);
    EXPECT_EQ(changed.count(), 1) << list;
  }
}

constexpr int Scan = 2, TalkAround = 5, LongBReverse = 5; // of the lists with a special function

TEST_F(SettingsTest, ASpecialKeyReplacesTheOtherListOrTakesItOutOfUse) {
  for (const auto& [list, other, fixed] :
       {std::tuple{"cboKey(0)", "cboKey(1)", "cboKey(11)"}, std::tuple{"cboKey(1)", "cboKey(0)", "cboKey(10)"}}) {
    for (const int position : {KeySpecial, Scan}) {
      window.Pick(list, position);
      EXPECT_TRUE(window.List(position == KeySpecial ? fixed : other).isVisible()) << other << position;
      EXPECT_TRUE(window.List(position == KeySpecial ? other : fixed).isHidden()) << other << position;
    }
  }
  for (const auto& [shortList, longList] : {std::pair{"cboKey(2)", "cboKey(3)"}, {"cboKey(4)", "cboKey(5)"}}) {
    window.Pick(longList, LongBReverse); // a key out of use does not count: no message for the second
    window.Pick(shortList, KeySpecial);
    EXPECT_FALSE(window.List(longList).isEnabled()) << longList;
    EXPECT_EQ(window.List(longList).currentIndex(), LongBReverse);
  }
  EXPECT_TRUE(messages.shown.empty());
  window.Pick("cboKey(2)", Scan);
  EXPECT_TRUE(window.List("cboKey(3)").isEnabled());
}

TEST_F(SettingsTest, ASecondTalkAroundOrReverseGoesBack) {
  window.Pick("cboKey(0)", TalkAround);
  window.Pick("cboKey(3)", 1);
  window.Pick("cboKey(3)", LongBReverse);
  EXPECT_EQ(messages.Taken(),
            (ShownMessages{{MessageIcon::Exclamation, "Talk Around Or Reverse",
                            "Talk Around or Reverse can't be present at the same time.If one key has been set to Talk "
                            "Around or Reverse,any other key must not be set to Talk Around or Reverse.",
                            MessageButtons::Ok}}));
  EXPECT_EQ(window.List("cboKey(3)").currentIndex(), 1);
}

struct TtsTableTest : SettingsTest {
  // Rows count from 0 below the headings, columns from 0 with "No.".
  QTableWidget& grid = window.Get<QTableWidget>("gridTTS");
  QLineEdit& box = window.Box("txtTTSFreq");
  QComboBox& list = window.List("cmbTTST");
  std::pair<int, int> Current() const { return {grid.currentRow(), grid.currentColumn()}; }
};

constexpr int ToneAFreq = 1, ToneADur = 2, ToneBFreq = 3;

TEST_F(TtsTableTest, LimitsAFrequencyAndGoesToTheTimeBesideIt) {
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"1a2.5-0", "", "1250", ""}, {"12", "", "288", ""}, {"1", "12x4", "520", "TTS Frequency Invalid!"}};
  for (const auto& [typed, pasted, stored, error] : cases) {
    SCOPED_TRACE(std::string(typed) + pasted);
    grid.item(2, ToneAFreq)->setText("520");
    Click(grid, 2, ToneAFreq);
    EXPECT_EQ(box.selectedText(), "520");
    QTest::keyClicks(&box, typed);
    QApplication::clipboard()->setText(pasted);
    if (*pasted != 0) QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(Cell(grid, 2, ToneAFreq), stored);
    EXPECT_EQ(messages.Taken(), ErrorMessage(error));
    EXPECT_TRUE(box.isHidden() && grid.hasFocus() && Current() == std::pair(2, ToneADur));
  }
}

TEST_F(TtsTableTest, KeysAndClicksOfTheTableAndItsEditors) {
  Click(grid, 3, 0); // a heading
  EXPECT_TRUE(list.isHidden() && Current() == std::pair(0, ToneAFreq));
  Click(grid, 7, 6);
  list.setCurrentText("9.9"); // stored as soon as it is picked
  QTest::keyClick(&list, Qt::Key_Escape);
  EXPECT_EQ(Cell(grid, 7, 6), "9.9");
  QTest::keyClick(&grid, Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(0, ToneAFreq)) << "from the last cell to the first";
  grid.setCurrentCell(1, ToneBFreq);
  QTest::keyClick(&grid, Qt::Key_Space);
  const int hertz = Cell(grid, 1, ToneBFreq).toInt();
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Return})
    QTest::keyClick(&box, key);
  EXPECT_EQ(Cell(grid, 1, ToneBFreq).toInt(), hertz + 1);
  EXPECT_EQ(Current(), std::pair(1, ToneBFreq)) << "only tone A moves on";
}

} // namespace
} // namespace mr4500x
