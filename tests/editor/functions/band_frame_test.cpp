#include "band_frame.h"
#include "functions_fixture.h"

#include <QMessageBox>
#include <QTimer>

namespace mr4500x {
namespace {

const char* const Lower = "txtFreqBandL";
const char* const Upper = "txtFreqBandU";

class BandFrameTest : public ::testing::Test {
protected:
  BandFrameTest() { Fill("440", "470"); }
  void Fill(const char* lower, const char* upper) {
    Configuration values;
    values.lowerBandLimit = lower;
    values.upperBandLimit = upper;
    frame->Fill(values);
  }

  ScriptedMessages messages;
  int stored = 440;
  std::vector<int> reinitialised;
  BandFrame* frame = new BandFrame(messages, {[this] { return stored; }, [this](int limit) { stored = limit; },
                                              [this](int limit) { reinitialised.push_back(stored = limit); }});
  FrameWindow window{frame};
};

TEST_F(BandFrameTest, ChecksAnEntryWhenTheFocusLeavesItAndAtUpAndDown) {
  const char* const notBelow = "The lower limit value must be less than the upper limit value!";
  const char* const notAbove = "The upper limit value must be more than the lower limit value!";
  const char* const lowerInvalid = "The lower limit value is invalid!";
  const char* const lowerInvalidAtKey = "The lower limit value of frequency band is invalid!";
  const char* const upperInvalid = "The upper limit value is invalid!";
  enum Check { Leave, Up, Down };
  struct {
    const char *box, *typed;
    Check check;
    const char *becomes, *error, *remembered;
  } const cases[] = {
      {Lower, "440", Leave, "440", "", "440"},
      {Lower, "4x4-0", Leave, "440", "", "440"},
      {Lower, "470", Leave, "440", notBelow, "440"},
      {Lower, "480", Leave, "440", notBelow, "440"},
      {Lower, "", Leave, "440", lowerInvalid, "440"},
      {Upper, "441", Leave, "441", "", "441"},
      {Upper, "999", Leave, "520", "", "520"},
      {Upper, "440", Leave, "470", notAbove, "470"},
      {Upper, "", Leave, "470", upperInvalid, "470"},
      {Lower, "450", Up, "450", "", "450"},
      {Lower, "99", Down, "136", "", "136"},
      {Lower, "470", Up, "440", "", "440"},
      {Lower, "", Up, "440", lowerInvalidAtKey, "440"},
      {Upper, "450", Down, "450", "", "470"},
      {Upper, "440", Up, "441", "", "470"},
      {Upper, "521", Down, "520", "", "470"},
      {Upper, "", Down, "420", upperInvalid, "470"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.box) + " " + c.typed + " check " + std::to_string(c.check));
    Fill("440", "470");
    QLineEdit& box = window.Type(c.box, c.typed);
    if (c.check == Leave) window.GoElsewhere();
    if (c.check == Up) QTest::keyClick(&box, Qt::Key_Up);
    if (c.check == Down) QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(window.Text(c.box), c.becomes);
    EXPECT_EQ(messages.Taken(), ErrorMessage(c.error));
    stored = 440; // entering the box may have stored another
    window.Type(c.box, "");
    window.GoElsewhere();
    EXPECT_EQ(window.Text(c.box), c.remembered);
    messages.shown.clear();
  }
  EXPECT_TRUE(reinitialised.empty());
}

TEST_F(BandFrameTest, AsksBeforeANewLowerLimitStartsTheChannelsAnew) {
  const ShownMessages question = {{MessageIcon::Exclamation, "Frequency Band Change",
                                   "Change the lower limit value, all data will be initiated. Do you want to continue?",
                                   MessageButtons::YesNo}};
  messages.answer = Answer::No;
  window.Type(Lower, "100");
  window.GoElsewhere();
  EXPECT_EQ(messages.Taken(), question);
  EXPECT_EQ(window.Text(Lower), "440");
  EXPECT_TRUE(reinitialised.empty());

  messages.answer = Answer::Yes;
  window.Type(Lower, "100");
  window.GoElsewhere();
  EXPECT_EQ(messages.Taken(), question);
  EXPECT_EQ(window.Text(Lower), "136");
  EXPECT_EQ(reinitialised, std::vector{136});

  window.Type(Lower, ""); // the remembered value is still the filled one
  window.GoElsewhere();
  EXPECT_EQ(window.Text(Lower), "440");
}

TEST_F(BandFrameTest, ClicksAndKeysOfTheLowerBox) {
  QLineEdit& box = window.Box(Lower);
  QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(2, box.height() / 2));
  EXPECT_EQ(box.selectedText(), "440");
  for (const Qt::Key ignored : {Qt::Key_Home, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Right}) {
    QTest::keyClick(&box, ignored);
    EXPECT_EQ(box.selectedText(), "440");
  }
  QTest::keyClicks(&box, "4567");
  EXPECT_EQ(box.text(), "456");
}

TEST_F(BandFrameTest, AMessageBoxDoesNotEndTheEntryOfTheNextBox) {
  window.Type(Upper, "100");
  messages.whileShown = [] {
    QMessageBox box;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &box, &QMessageBox::accept);
    closer.start(50);
    box.exec();
  };
  window.Box(Lower).setFocus(Qt::TabFocusReason);
  EXPECT_EQ(messages.Taken(), ErrorMessage("The upper limit value must be more than the lower limit value!"));
  EXPECT_EQ(window.Text(Upper), "470");
  EXPECT_EQ(frame->window()->focusWidget(), &window.Box(Lower));
}

} // namespace
} // namespace mr4500x
