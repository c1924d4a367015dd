#include "functions_fixture.h"
#include "key_frame.h"

namespace mr4500x {
namespace {

constexpr int Scan = 2; // of the lists with a special function
constexpr int TalkAround = 5;
constexpr int LongBReverse = 5;

class KeyFrameTest : public ::testing::Test {
protected:
  void Fill(std::array<int, 6> selection, bool conflict = false) {
    Configuration values;
    values.keys.selection = selection;
    frame->Fill(values, conflict);
  }
  std::array<int, 6> Shown() {
    std::array<int, 6> shown{};
    for (std::size_t key = 0; key < shown.size(); ++key) {
      shown[key] = window.List(qPrintable(QStringLiteral("cboKey(%1)").arg(key))).currentIndex();
    }
    return shown;
  }
  bool Visible(const char* objectName) { return window.List(objectName).isVisible(); }

  const ShownMessages conflictMessage = {
      {MessageIcon::Exclamation, "Talk Around Or Reverse",
       "Talk Around or Reverse can't be present at the same time.If one key has been set to Talk Around or "
       "Reverse,any other key must not be set to Talk Around or Reverse.",
       MessageButtons::Ok}};
  ScriptedMessages messages;
  KeyFrame* frame = new KeyFrame(messages);
  FrameWindow window{frame};
};

TEST_F(KeyFrameTest, TheEmergencyPairReplacesTheOtherList) {
  struct {
    const char* picked;
    int position;
    bool shortA, fixedShortA, longA, fixedLongA;
  } const steps[] = {
      {"cboKey(0)", KeySpecial, true, false, false, true},
      {"cboKey(0)", Scan, true, false, true, false},
      {"cboKey(1)", KeySpecial, false, true, true, false},
      {"cboKey(1)", Scan, true, false, true, false},
  };
  for (const auto& step : steps) {
    window.Pick(step.picked, step.position);
    SCOPED_TRACE(std::string(step.picked) + " " + std::to_string(step.position));
    EXPECT_EQ(Visible("cboKey(0)"), step.shortA);
    EXPECT_EQ(Visible("cboKey(10)"), step.fixedShortA);
    EXPECT_EQ(Visible("cboKey(1)"), step.longA);
    EXPECT_EQ(Visible("cboKey(11)"), step.fixedLongA);
    EXPECT_EQ(window.List("cboKey(0)").geometry(), window.List("cboKey(10)").geometry());
    EXPECT_EQ(window.List("cboKey(1)").geometry(), window.List("cboKey(11)").geometry());
  }
  EXPECT_EQ(window.List("cboKey(10)").currentText(), "Emergency Alert");
  EXPECT_EQ(window.List("cboKey(11)").currentText(), "Cancel Emergency Alert");
}

TEST_F(KeyFrameTest, MonitorTakesTheLongPressOutOfUse) {
  for (const auto& [shortList, longList] : {std::pair{"cboKey(2)", "cboKey(3)"}, std::pair{"cboKey(4)", "cboKey(5)"}}) {
    const auto textColour = [&, list = shortList] { return window.List(list).palette().color(QPalette::ButtonText); };
    window.Pick(longList, LongBReverse);
    EXPECT_EQ(textColour(), QColor(0, 0, 192));
    window.Pick(shortList, KeySpecial);
    EXPECT_FALSE(window.List(longList).isEnabled());
    EXPECT_EQ(window.List(longList).currentIndex(), LongBReverse);
    EXPECT_EQ(window.List(longList).palette().brush(QPalette::Base), frame->palette().brush(QPalette::Button));
    EXPECT_EQ(textColour(), QColor(0, 128, 0));
  }
  EXPECT_EQ(messages.Taken(), NoMessage()) << "a key out of use does not count";
  window.Pick("cboKey(2)", Scan);
  EXPECT_TRUE(window.List("cboKey(3)").isEnabled());
  EXPECT_EQ(window.List("cboKey(2)").palette().color(QPalette::ButtonText), QColor(0, 0, 192));
}

TEST_F(KeyFrameTest, ASecondTalkAroundOrReverseGoesBack) {
  window.Pick("cboKey(0)", TalkAround);
  window.Pick("cboKey(3)", 1);
  QSignalSpy changed(frame, &KeyFrame::Changed);
  int whileShown = 0;
  messages.whileShown = [&] { whileShown = window.List("cboKey(3)").currentIndex(); };
  window.Pick("cboKey(3)", LongBReverse);
  EXPECT_EQ(messages.Taken(), conflictMessage);
  EXPECT_EQ(whileShown, LongBReverse) << "the user sees what is refused";
  EXPECT_EQ(Shown(), (std::array{TalkAround, 0, 0, 1, 0, 0}));
  EXPECT_EQ(changed.count(), 1);
}

} // namespace
} // namespace mr4500x
