#include "functions_fixture.h"
#include "radio_image.h"
#include "tts_frame.h"

#include <QHeaderView>
#include <QTableWidget>

namespace mr4500x {
namespace {

constexpr int ToneAFreq = 1, ToneADur = 2;

class TtsFrameTest : public ::testing::Test {
protected:
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
  MemoryClipboard clipboard;
  TtsFrame* frame = new TtsFrame(messages, clipboard, '.');
  FrameWindow window{frame};
  QTableWidget& grid = window.Get<QTableWidget>("gridTTS");
  QLineEdit& box = window.Box("txtTTSFreq");
  QComboBox& list = window.List("cmbTTST");
};

TEST_F(TtsFrameTest, LimitsAFrequencyAtEveryEndOfItsEntry) {
  const char* const error = "TTS Frequency Invalid!";
  struct {
    const char *typed, *pasted, *stored, *error;
  } const cases[] = {{"5000", nullptr, "3000", ""},    {"12", nullptr, "288", ""},     {"", nullptr, "288", ""},
                     {"1a2.5-0", nullptr, "1250", ""}, {"12345", nullptr, "1234", ""}, {"1", "12x4", "520", error}};
  enum End { Enter, Leave, Commit, AnotherCell };
  for (const auto& c : cases) {
    for (const End end : {Enter, Leave, Commit, AnotherCell}) {
      SCOPED_TRACE(std::string(c.typed) + " end " + std::to_string(end));
      grid.item(2, ToneAFreq)->setText("520");
      Click(2, ToneAFreq);
      ASSERT_TRUE(box.isVisible() && box.hasFocus());
      EXPECT_EQ(box.selectedText(), "520");
      QTest::keyClick(&box, Qt::Key_Backspace);
      QTest::keyClicks(&box, c.typed);
      if (c.pasted != nullptr) {
        clipboard.text = c.pasted;
        frame->Paste();
      }
      if (end == Enter) QTest::keyClick(&box, Qt::Key_Return);
      if (end == Leave) window.GoElsewhere();
      if (end == Commit) frame->CommitEditors();
      if (end == AnotherCell) Click(5, ToneADur);
      EXPECT_EQ(Cell(2, ToneAFreq), c.stored);
      EXPECT_FALSE(box.isVisible());
      EXPECT_FALSE(frame->HasOpenFrequencyEditor());
      EXPECT_EQ(messages.Taken(), ErrorMessage(c.error));
      if (end == Enter) {
        EXPECT_EQ(Current(), std::pair(2, ToneADur));
        EXPECT_TRUE(grid.hasFocus());
      }
    }
  }
}

TEST_F(TtsFrameTest, HeadingsOpenNothing) {
  QSignalSpy changed(frame, &TtsFrame::Changed);
  Click(3, 0);
  QWidget* const headings = grid.horizontalHeader()->viewport();
  QTest::mouseClick(headings, Qt::LeftButton, {}, headings->rect().center());
  EXPECT_FALSE(box.isVisible() || list.isVisible());
  EXPECT_EQ(Current(), std::pair(0, ToneAFreq));
  EXPECT_EQ(changed.count(), 0);
}

TEST_F(TtsFrameTest, FiveToneModeTakesTheTableOutOfUse) {
  Click(4, ToneAFreq);
  QTest::keyClicks(&box, "700");
  frame->SetTtsMode(false);
  EXPECT_FALSE(frame->HasOpenFrequencyEditor() || frame->isEnabled() || grid.isEnabled());
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
