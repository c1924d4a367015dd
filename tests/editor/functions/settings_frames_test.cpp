#include "arrow_pair.h"
#include "field_rules.h"
#include "functions_fixture.h"
#include "global_settings_frame.h"
#include "reset_time_frame.h"
#include "select_call_frame.h"

#include <QCheckBox>

namespace mr4500x {
namespace {

class GlobalSettingsTest : public ::testing::Test {
protected:
  ScriptedMessages messages;
  GlobalSettingsFrame* frame = new GlobalSettingsFrame(messages);
  FrameWindow window{frame};
};

TEST_F(GlobalSettingsTest, PttIdDecidesWhichIdBoxesAreInUse) {
  struct {
    int pttId;
    bool connect, disconnect;
  } const cases[] = {{3, true, true}, {1, true, false}, {2, false, true}, {0, false, false}};
  for (const auto& c : cases) {
    window.Pick("cboRadio(9)", 3);
    window.Type("txtConnect", "12");
    window.Type("txtDisconnect", "34");
    window.Pick("cboRadio(9)", c.pttId);
    for (const auto& [name, used, typed] : {std::tuple{"txtConnect", c.connect, std::string("12")},
                                            std::tuple{"txtDisconnect", c.disconnect, std::string("34")}}) {
      SCOPED_TRACE(name);
      const QLineEdit& box = window.Box(name);
      EXPECT_EQ(box.isEnabled(), used);
      EXPECT_EQ(window.Text(name), used ? typed : std::string(NoNumberText));
      EXPECT_EQ(box.palette().brush(QPalette::Active, QPalette::Base),
                frame->palette().brush(QPalette::Active, used ? QPalette::Base : QPalette::Button));
    }
  }
}

TEST_F(GlobalSettingsTest, TheIdBoxesFilterKeysAndCheckPastedTexts) {
  window.Pick("cboRadio(9)", 3);
  QSignalSpy changed(frame, &GlobalSettingsFrame::Changed);
  for (const auto& [box, error] :
       {std::pair{"txtANI", "Emergency ANI Invalid!"}, std::pair{"txtConnect", "Connect ID Invalid!"},
        std::pair{"txtDisconnect", "Disconnect ID Invalid!"}}) {
    SCOPED_TRACE(box);
    window.Type(box, "a1*xe-#.D 0");
    window.GoElsewhere();
    EXPECT_EQ(window.Text(box), "A1*#D0");
    window.Type(box, "12345678901234567");
    EXPECT_EQ(window.Text(box), "1234567890123456");
    for (const auto& [pasted, accepted] : {std::pair{"12--", true}, std::pair{"12x3", false}, std::pair{"", true}}) {
      window.Type(box, "").insert(QLatin1String(pasted));
      QFocusEvent toMenu(QEvent::FocusOut, Qt::PopupFocusReason);
      QApplication::sendEvent(&window.Box(box), &toMenu);
      EXPECT_EQ(window.Text(box), pasted) << "a menu over the box does not end the entry";
      window.GoElsewhere();
      EXPECT_EQ(messages.Taken(), ErrorMessage(accepted ? "" : error));
      EXPECT_EQ(window.Text(box), accepted ? pasted : NoNumberText);
    }
  }
  EXPECT_EQ(changed.count(), 0) << "typing an ID is no change of the data";
}

class ResetTimeTest : public ::testing::Test {
protected:
  void Fill(const char* seconds) {
    Configuration values;
    values.autoResetTime = seconds;
    frame->Fill(values);
  }
  void ClickArrow(bool up) {
    auto& arrows = window.Get<ArrowPair>("vsbResetTime");
    QTest::mouseClick(&arrows, Qt::LeftButton, {}, {arrows.width() / 2, arrows.height() * (up ? 1 : 3) / 4});
    EXPECT_EQ(arrows.value(), 50);
  }
  QCheckBox& Off() { return window.Get<QCheckBox>("chkResetTimeOFF"); }

  ScriptedMessages messages;
  ResetTimeFrame* frame = new ResetTimeFrame(messages);
  FrameWindow window{frame};
};

TEST_F(ResetTimeTest, LimitsEveryWayOfEntry) {
  enum Action { Up, Down, SpinUp, SpinDown, Enter, Leave };
  const char* const atKey = "Auot Reset Time Invalid!";
  const char* const atSpinner = "Auto Reset Time Invalid!";
  struct {
    const char *typed, *becomes, *error;
    Action action;
    bool off;
  } const cases[] = {
      {"5", "6", "", Up, false},           {"255", "255", "", Up, false},       {"7", "6", "", Down, false},
      {"1", "1", "", Down, true},          {"", "1", atKey, Up, false},         {"", "1", atKey, Down, false},
      {"5", "6", "", SpinUp, false},       {"5", "4", "", SpinDown, false},     {"255", "255", "", SpinUp, false},
      {"1", "1", "", SpinDown, false},     {"", "1", atSpinner, SpinUp, false}, {"", "1", atSpinner, SpinDown, false},
      {"", "1", "", Enter, false},         {"0", "1", "", Enter, true},         {"256", "255", "", Enter, false},
      {"", "1", "", Leave, false},         {"0", "1", "", Leave, true},         {"999", "255", "", Leave, false},
      {"12a-.3", "123", "", Leave, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.typed) + " action " + std::to_string(c.action));
    Fill("5");
    QLineEdit& box = window.Type("txtResetTime", c.typed);
    if (c.action == Up) QTest::keyClick(&box, Qt::Key_Up);
    if (c.action == Down) QTest::keyClick(&box, Qt::Key_Down);
    if (c.action == Enter) QTest::keyClick(&box, Qt::Key_Enter);
    if (c.action == SpinUp || c.action == SpinDown) ClickArrow(c.action == SpinUp);
    if (c.action == Leave) window.GoElsewhere();
    EXPECT_EQ(window.Text("txtResetTime"), c.becomes);
    EXPECT_EQ(Off().isChecked(), c.off);
    EXPECT_EQ(box.isEnabled(), !c.off);
    EXPECT_EQ(window.Get<ArrowPair>("vsbResetTime").isEnabled(), !c.off);
    EXPECT_EQ(messages.Taken(), ErrorMessage(c.error));
  }
}

TEST_F(ResetTimeTest, EveryChangeIsToldAndAFillUnderOffLeavesTheText) {
  QLineEdit& box = window.Type("txtResetTime", "12");
  QTest::keyClick(&box, Qt::Key_Home); // ignored, as Delete is
  QTest::keyClick(&box, Qt::Key_Delete);
  EXPECT_EQ(box.text(), "12");
  QSignalSpy changed(frame, &ResetTimeFrame::Changed);
  QTest::keyClicks(&box, "3");
  QTest::mouseClick(&Off(), Qt::LeftButton, {}, {8, Off().height() / 2});
  EXPECT_EQ(changed.count(), 2);

  Configuration values;
  values.autoResetOff = true;
  values.autoResetTime = "9";
  frame->Fill(values);
  EXPECT_EQ(box.text(), "123");
  EXPECT_FALSE(box.isEnabled());
  Fill("9");
  EXPECT_EQ(box.text(), "9");
  EXPECT_TRUE(box.isEnabled());
}

TEST(SelectCallFrame, TellsOnlyARealChangeOfTheMode) {
  auto* const frame = new SelectCallFrame;
  FrameWindow window(frame);
  QSignalSpy mode(frame, &SelectCallFrame::ModeChanged);
  QSignalSpy lists(frame, &SelectCallFrame::ListChanged);
  QSignalSpy changed(frame, &SelectCallFrame::Changed);
  Configuration values;
  values[ChoiceList::SelectCall].position = 0;
  frame->Fill(values);
  EXPECT_EQ(mode.count(), 0);
  EXPECT_EQ(lists.count(), 1) << "the steps run for the same mode too";
  window.Pick("cboRadio(0)", 1);
  window.Pick("cboRadio(0)", 1);
  window.Pick("cboRadio(0)", 0);
  ASSERT_EQ(mode.count(), 2);
  EXPECT_FALSE(mode[0][0].toBool());
  EXPECT_TRUE(mode[1][0].toBool());
  EXPECT_EQ(changed.count(), 3);
}

} // namespace
} // namespace mr4500x
