// The frames that have rules of their own: the band, the ID boxes, the reset time, the mode and the keys.
#include "band_frame.h"
#include "editor_fixture.h"
#include "field_rules.h"
#include "global_settings_frame.h"
#include "key_frame.h"
#include "one_list_frames.h"
#include "reset_time_frame.h"

#include <QCheckBox>
#include <QSpinBox>

namespace mr4500x {
namespace {

const char* const Lower = "txtFreqBandL";
const char* const Upper = "txtFreqBandU";

struct BandFrameTest : testing::Test {
  BandFrameTest() { Fill(); }
  void Fill() {
    Configuration values;
    values.lowerBandLimit = "440";
    values.upperBandLimit = "470";
    frame->Fill(values);
  }
  ScriptedMessages messages;
  int stored = 440;
  std::vector<int> reinitialised;
  BandFrame* frame = new BandFrame(messages, {[this] { return stored; }, [this](int limit) { stored = limit; },
                                              [this](int limit) { reinitialised.push_back(stored = limit); }});
  FrameWindow window{frame};
};

// Typed into the box, checked by a key or by the focus that leaves, what the box shows then, the message, and the value
// that an empty box goes back to afterwards.
TEST_F(BandFrameTest, ChecksAnEntryWhenTheFocusLeavesItAndAtUpAndDown) {
  const char* const lowerInvalid = "The lower limit value is invalid!";
  const char* const upperInvalid = "The upper limit value is invalid!";
  constexpr auto leave = Qt::Key_unknown;
  const std::tuple<const char*, const char*, Qt::Key, const char*, const char*, const char*> cases[] = {
      {Lower, "4x4-0", leave, "440", "", "440"},
      {Lower, "470", leave, "440", "The lower limit value must be less than the upper limit value!", "440"},
      {Lower, "", leave, "440", lowerInvalid, "440"},
      {Upper, "999", leave, "520", "", "520"},
      {Upper, "440", leave, "470", "The upper limit value must be more than the lower limit value!", "470"},
      {Upper, "", leave, "470", upperInvalid, "470"},
      {Lower, "450", Qt::Key_Up, "450", "", "450"},
      {Lower, "99", Qt::Key_Down, "136", "", "136"},
      {Lower, "470", Qt::Key_Up, "440", "", "440"},
      {Lower, "", Qt::Key_Up, "440", "The lower limit value of frequency band is invalid!", "440"},
      {Upper, "440", Qt::Key_Up, "441", "", "470"},
      {Upper, "521", Qt::Key_Down, "520", "", "470"},
      {Upper, "", Qt::Key_Down, "420", upperInvalid, "470"},
  };
  for (const auto& [name, typed, key, becomes, error, remembered] : cases) {
    SCOPED_TRACE(std::string(name) + " '" + typed + "' key " + std::to_string(key));
    Fill();
    QLineEdit& box = window.Type(name, typed);
    if (key != leave) QTest::keyClick(&box, key);
    if (key == leave) window.GoElsewhere();
    EXPECT_EQ(window.Text(name), becomes);
    EXPECT_EQ(messages.Taken(), ErrorMessage(error));
    stored = 440; // entering the box may have stored another
    window.Type(name, "");
    window.GoElsewhere();
    EXPECT_EQ(window.Text(name), remembered);
    messages.shown.clear();
  }
  EXPECT_TRUE(reinitialised.empty());
}

TEST_F(BandFrameTest, AsksBeforeANewLowerLimitStartsTheChannelsAnew) {
  const ShownMessages question = {{MessageIcon::Exclamation, "Frequency Band Change",
                                   "Change the lower limit value, all data will be initiated. Do you want to continue?",
                                   MessageButtons::YesNo}};
  for (const bool yes : {false, true}) {
    SCOPED_TRACE(yes ? "Yes" : "No");
    messages.answer = yes ? Answer::Yes : Answer::No;
    window.Type(Lower, "100");
    window.GoElsewhere();
    EXPECT_EQ(messages.Taken(), question);
    EXPECT_EQ(window.Text(Lower), yes ? "136" : "440");
    EXPECT_EQ(reinitialised, yes ? std::vector{136} : std::vector<int>());
  }
  window.Type(Lower, "");
  window.GoElsewhere();
  EXPECT_EQ(window.Text(Lower), "440") << "the remembered value is still the filled one";
}

TEST_F(BandFrameTest, ClicksAndKeysOfTheLowerBox) {
  QLineEdit& box = window.Box(Lower);
  QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(2, box.height() / 2));
  for (const Qt::Key ignored : {Qt::Key_Home, Qt::Key_Delete, Qt::Key_Left}) {
    QTest::keyClick(&box, ignored);
    EXPECT_EQ(box.selectedText(), "440") << ignored;
  }
  QTest::keyClicks(&box, "4567");
  EXPECT_EQ(box.text(), "456");
}

struct GlobalSettingsTest : testing::Test {
  ScriptedMessages messages;
  GlobalSettingsFrame* frame = new GlobalSettingsFrame(messages);
  FrameWindow window{frame};
};

TEST_F(GlobalSettingsTest, PttIdDecidesWhichIdBoxesAreInUse) {
  QComboBox& pttId = window.List("cboRadio(9)");
  const std::tuple<const char*, bool, bool> cases[] = {
      {"Both", true, true}, {"Connect ID", true, false}, {"Disconnect ID", false, true}, {"OFF", false, false}};
  for (const auto& [choice, connect, disconnect] : cases) {
    for (const auto& [name, used] : {std::pair{"txtConnect", connect}, std::pair{"txtDisconnect", disconnect}}) {
      SCOPED_TRACE(std::string(name) + " at " + choice);
      pttId.setCurrentText("Both");
      QLineEdit& box = window.Type(name, "12");
      pttId.setCurrentText(choice);
      EXPECT_EQ(box.isEnabled(), used);
      EXPECT_EQ(window.Text(name), used ? "12" : NoNumberText);
      EXPECT_EQ(box.palette().brush(QPalette::Active, QPalette::Base),
                frame->palette().brush(QPalette::Active, used ? QPalette::Base : QPalette::Button));
    }
  }
}

TEST_F(GlobalSettingsTest, TheIdBoxesFilterKeysAndCheckPastedTexts) {
  window.List("cboRadio(9)").setCurrentText("Both");
  QSignalSpy changed(frame, &GlobalSettingsFrame::Changed);
  for (const auto& [box, error] :
       {std::pair{"txtANI", "Emergency ANI Invalid!"}, std::pair{"txtConnect", "Connect ID Invalid!"},
        std::pair{"txtDisconnect", "Disconnect ID Invalid!"}}) {
    for (const auto& [typed, becomes] :
         {std::pair{"a1*xe-#.D 0", "A1*#D0"}, std::pair{"12345678901234567", "1234567890123456"}}) {
      EXPECT_EQ(window.Type(box, typed).text(), becomes) << box;
    }
    for (const auto& [pasted, accepted] : {std::pair{"12--", true}, std::pair{"12x3", false}, std::pair{"", true}}) {
      SCOPED_TRACE(std::string(box) + " '" + pasted + "'");
      window.Type(box, "").insert(QLatin1String(pasted));
      window.GoElsewhere();
      EXPECT_EQ(messages.Taken(), ErrorMessage(accepted ? "" : error));
      EXPECT_EQ(window.Text(box), accepted ? pasted : NoNumberText);
    }
  }
  EXPECT_EQ(changed.count(), 0) << "typing an ID is no change of the data";
}

struct ResetTimeTest : testing::Test {
  void Fill(const char* seconds, bool isOff = false) {
    Configuration values;
    values.autoResetTime = seconds;
    values.autoResetOff = isOff;
    frame->Fill(values);
  }
  ScriptedMessages messages;
  ResetTimeFrame* frame = new ResetTimeFrame(messages);
  FrameWindow window{frame};
  QCheckBox& off = window.Get<QCheckBox>("chkResetTimeOFF");
  QSpinBox& arrows = window.Get<QSpinBox>("vsbResetTime");
};

TEST_F(ResetTimeTest, LimitsEveryWayOfEntry) {
  const auto key = [this](Qt::Key k) { return [=, this] { QTest::keyClick(&window.Box("txtResetTime"), k); }; };
  const auto arrow = [this](int quarter) {
    return [=, this] {
      QTest::mouseClick(&arrows, Qt::LeftButton, {}, {arrows.width() / 2, arrows.height() * quarter / 4});
    };
  };
  const auto up = key(Qt::Key_Up), down = key(Qt::Key_Down), enter = key(Qt::Key_Enter);
  const auto spinUp = arrow(1), spinDown = arrow(3);
  const auto leave = [this] { window.GoElsewhere(); };
  const std::tuple<const char*, const char*, std::function<void()>, const char*, bool, const char*> cases[] = {
      {"Up", "5", up, "6", false, ""},
      {"Up at the top", "255", up, "255", false, ""},
      {"Down to OFF", "1", down, "1", true, ""},
      {"Down when empty", "", down, "1", false, "Auot Reset Time Invalid!"},
      {"arrow up", "5", spinUp, "6", false, ""},
      {"arrow down", "5", spinDown, "4", false, ""},
      {"arrow down at the bottom", "1", spinDown, "1", false, ""},
      {"arrow when empty", "", spinUp, "1", false, "Auto Reset Time Invalid!"},
      {"Enter", "256", enter, "255", false, ""},
      {"leave", "0", leave, "1", true, ""},
      {"filter", "12a-.3", leave, "123", false, ""},
  };
  for (const auto& [name, typed, act, becomes, isOff, error] : cases) {
    SCOPED_TRACE(name);
    Fill("5");
    QLineEdit& box = window.Type("txtResetTime", typed);
    act();
    EXPECT_EQ(window.Text("txtResetTime"), becomes);
    EXPECT_EQ(off.isChecked(), isOff);
    EXPECT_TRUE(box.isEnabled() == !isOff && arrows.isEnabled() == !isOff);
    EXPECT_EQ(messages.Taken(), ErrorMessage(error));
  }
}

TEST_F(ResetTimeTest, EveryChangeIsToldAndAFillUnderOffLeavesTheText) {
  QLineEdit& box = window.Type("txtResetTime", "12");
  QSignalSpy changed(frame, &ResetTimeFrame::Changed);
  QTest::keyClicks(&box, "3");
  EXPECT_EQ(box.text(), "123");
  QTest::mouseClick(&off, Qt::LeftButton, {}, {8, off.height() / 2});
  EXPECT_EQ(changed.count(), 2);
  Fill("9", true);
  EXPECT_TRUE(box.text() == "123" && !box.isEnabled());
  Fill("9");
  EXPECT_TRUE(box.text() == "9" && box.isEnabled());
}

TEST(SelectCallFrame, TellsOnlyARealChangeOfTheMode) {
  auto* const frame = new SelectCallFrame;
  FrameWindow window(frame);
  QSignalSpy mode(frame, &SelectCallFrame::ModeChanged), lists(frame, &SelectCallFrame::ListChanged);
  Configuration values;
  values[ChoiceList::SelectCall].position = 0;
  frame->Fill(values);
  EXPECT_EQ(mode.count(), 0);
  EXPECT_EQ(lists.count(), 1) << "the steps run for the same mode too";
  for (const int position : {1, 1, 0}) {
    window.Pick("cboRadio(0)", position);
  }
  EXPECT_EQ(mode, (QList<QList<QVariant>>{{false}, {true}}));
}

constexpr int Scan = 2; // of the lists with a special function
constexpr int TalkAround = 5;
constexpr int LongBReverse = 5;

struct KeyFrameTest : testing::Test {
  bool Visible(const char* list) { return window.List(list).isVisible(); }
  QColor TextColour(const char* list) { return window.List(list).palette().color(QPalette::ButtonText); }

  ScriptedMessages messages;
  KeyFrame* frame = new KeyFrame(messages);
  FrameWindow window{frame};
};

TEST_F(KeyFrameTest, TheEmergencyPairReplacesTheOtherList) {
  const std::tuple<const char*, int, bool, bool> steps[] = {{"cboKey(0)", KeySpecial, false, true},
                                                            {"cboKey(0)", Scan, false, false},
                                                            {"cboKey(1)", KeySpecial, true, false},
                                                            {"cboKey(1)", Scan, false, false}};
  for (const auto& [list, position, fixedShortA, fixedLongA] : steps) {
    SCOPED_TRACE(std::string(list) + " " + std::to_string(position));
    window.Pick(list, position);
    EXPECT_TRUE(Visible("cboKey(10)") == fixedShortA && Visible("cboKey(0)") == !fixedShortA);
    EXPECT_TRUE(Visible("cboKey(11)") == fixedLongA && Visible("cboKey(1)") == !fixedLongA);
    EXPECT_EQ(window.List("cboKey(0)").geometry(), window.List("cboKey(10)").geometry());
    EXPECT_EQ(window.List("cboKey(1)").geometry(), window.List("cboKey(11)").geometry());
  }
  EXPECT_EQ(window.List("cboKey(10)").currentText(), "Emergency Alert");
  EXPECT_EQ(window.List("cboKey(11)").currentText(), "Cancel Emergency Alert");
}

TEST_F(KeyFrameTest, MonitorTakesTheLongPressOutOfUse) {
  for (const auto& [shortList, longList] : {std::pair{"cboKey(2)", "cboKey(3)"}, std::pair{"cboKey(4)", "cboKey(5)"}}) {
    SCOPED_TRACE(shortList);
    window.Pick(longList, LongBReverse);
    EXPECT_EQ(TextColour(shortList), QColor(0, 0, 192));
    window.Pick(shortList, KeySpecial);
    EXPECT_FALSE(window.List(longList).isEnabled());
    EXPECT_EQ(window.List(longList).currentIndex(), LongBReverse);
    EXPECT_EQ(window.List(longList).palette().brush(QPalette::Base), frame->palette().brush(QPalette::Button));
    EXPECT_EQ(TextColour(shortList), QColor(0, 128, 0));
  }
  EXPECT_EQ(messages.Taken(), ErrorMessage("")) << "a key out of use does not count";
  window.Pick("cboKey(2)", Scan);
  EXPECT_TRUE(window.List("cboKey(3)").isEnabled());
  EXPECT_EQ(TextColour("cboKey(2)"), QColor(0, 0, 192));
}

TEST_F(KeyFrameTest, ASecondTalkAroundOrReverseGoesBack) {
  window.Pick("cboKey(0)", TalkAround);
  window.Pick("cboKey(3)", 1);
  QSignalSpy changed(frame, &KeyFrame::Changed);
  int whileShown = 0;
  messages.whileShown = [&] { whileShown = window.List("cboKey(3)").currentIndex(); };
  window.Pick("cboKey(3)", LongBReverse);
  EXPECT_EQ(messages.Taken(),
            (ShownMessages{{MessageIcon::Exclamation, "Talk Around Or Reverse",
                            "Talk Around or Reverse can't be present at the same time.If one key has been set to Talk "
                            "Around or Reverse,any other key must not be set to Talk Around or Reverse.",
                            MessageButtons::Ok}}));
  EXPECT_EQ(whileShown, LongBReverse) << "the user sees what is refused";
  EXPECT_EQ(window.List("cboKey(3)").currentIndex(), 1);
  EXPECT_EQ(window.List("cboKey(0)").currentIndex(), TalkAround);
  EXPECT_EQ(changed.count(), 1);
}

} // namespace
} // namespace mr4500x
