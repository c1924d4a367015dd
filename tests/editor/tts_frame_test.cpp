#include "editor_fixture.h"
#include "radio_image.h"
#include "tts_frame.h"

#include <QHeaderView>
#include <QTableWidget>

namespace mr4500x {
namespace {

constexpr int ToneAFreq = 1, ToneADur = 2, ToneBFreq = 3;

struct TtsFrameTest : testing::Test {
  TtsFrameTest() {
    RadioImage image;
    Configuration values;
    values = NewConfiguration(image, BuildFieldTexts('.'), {});
    frame->Fill(values);
  }
  // Rows count from 0 below the headings, columns from 0 with "No.".
  void Click(int row, int column) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualItemRect(grid.item(row, column)).center());
  }
  QString Cell(int row, int column) { return grid.item(row, column)->text(); }
  std::pair<int, int> Current() { return {grid.currentRow(), grid.currentColumn()}; }

  ScriptedMessages messages;
  TtsFrame* frame = new TtsFrame(messages, '.');
  FrameWindow window{frame};
  QTableWidget& grid = window.Get<QTableWidget>("gridTTS");
  QLineEdit& box = window.Box("txtTTSFreq");
  QComboBox& list = window.List("cmbTTST");
};

TEST_F(TtsFrameTest, LimitsAFrequencyAndGoesToTheTimeBesideIt) {
  struct {
    const char *typed, *pasted, *stored, *error;
  } const cases[] = {{"5000", "", "3000", ""},
                     {"12", "", "288", ""},
                     {"", "", "288", ""},
                     {"1a2.5-0", "", "1250", ""},
                     {"1", "12x4", "520", "TTS Frequency Invalid!"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.typed) + c.pasted);
    grid.item(2, ToneAFreq)->setText("520");
    Click(2, ToneAFreq);
    EXPECT_EQ(box.selectedText(), "520");
    QTest::keyClick(&box, Qt::Key_Backspace);
    QTest::keyClicks(&box, c.typed);
    QApplication::clipboard()->setText(c.pasted);
    if (*c.pasted != 0) QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(Cell(2, ToneAFreq), c.stored);
    EXPECT_EQ(messages.Taken(), ErrorMessage(c.error));
    EXPECT_EQ(Current(), std::pair(2, ToneADur));
    EXPECT_TRUE(box.isHidden() && grid.hasFocus());
  }
}

TEST_F(TtsFrameTest, KeysAndClicksOfTheTableAndItsEditors) {
  Click(3, 0); // a heading
  EXPECT_TRUE(list.isHidden() && Current() == std::pair(0, ToneAFreq));
  Click(7, 6);
  EXPECT_TRUE(list.isVisible() && list.hasFocus());
  list.setCurrentText("9.9"); // stored as soon as it is picked
  QTest::keyClick(&list, Qt::Key_Escape);
  EXPECT_EQ(Cell(7, 6), "9.9");
  EXPECT_TRUE(list.isHidden() && grid.hasFocus());
  QTest::keyClick(&grid, Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(0, ToneAFreq)) << "from the last cell to the first";
  grid.setCurrentCell(1, ToneBFreq);
  QTest::keyClick(&grid, Qt::Key_Space);
  const int hertz = Cell(1, ToneBFreq).toInt();
  QTest::keyClick(&box, Qt::Key_Up);
  QTest::keyClick(&box, Qt::Key_Up);
  QTest::keyClick(&box, Qt::Key_Down);
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(Cell(1, ToneBFreq).toInt(), hertz + 1);
  EXPECT_EQ(Current(), std::pair(1, ToneBFreq)) << "only tone A moves on";
}

TEST_F(TtsFrameTest, FiveToneModeTakesTheTableOutOfUse) {
  Click(4, ToneAFreq);
  QTest::keyClicks(&box, "700");
  frame->SetTtsMode(false);
  EXPECT_EQ(frame->OpenEntry(), nullptr);
  EXPECT_FALSE(frame->isEnabled() || grid.isEnabled());
  EXPECT_EQ(Cell(4, ToneAFreq), "675");
  EXPECT_EQ(grid.palette().brush(QPalette::Base), frame->palette().brush(QPalette::Active, QPalette::Button));
  EXPECT_NE(grid.item(4, ToneAFreq)->foreground().color(), QColor(0, 128, 0));
  frame->SetTtsMode(true);
  EXPECT_TRUE(grid.isEnabled());
  EXPECT_EQ(grid.palette().brush(QPalette::Base), frame->palette().brush(QPalette::Base));
  EXPECT_EQ(grid.item(4, ToneAFreq)->foreground().color(), QColor(0, 128, 0));
}

} // namespace
} // namespace mr4500x
