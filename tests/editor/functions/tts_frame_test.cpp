#include "functions_fixture.h"
#include "radio_image.h"
#include "tts_frame.h"

#include <QHeaderView>
#include <QTableWidget>

namespace mr4500x {
namespace {

constexpr int ToneAFreq = 1, ToneADur = 2, ToneBFreq = 3, GroupCallDur = 6;

class TtsFrameTest : public ::testing::Test {
protected:
  TtsFrameTest() {
    RadioImage image;
    EditorValues values;
    ResetEditor(image, values, BuildFieldTexts('.'), {});
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

TEST_F(TtsFrameTest, TheKeysOfTheFrequencyEditor) {
  Click(0, ToneBFreq); // 1141
  QTest::keyClick(&box, Qt::Key_Up);
  QTest::keyClick(&box, Qt::Key_Up);
  QTest::keyClick(&box, Qt::Key_Down);
  frame->Copy();
  EXPECT_EQ(clipboard.text, "1142");
  QTest::keyClick(&box, Qt::Key_Escape);
  frame->Copy(); // nothing is open
  EXPECT_EQ(clipboard.text, "1142");
  EXPECT_FALSE(box.isVisible());
  EXPECT_EQ(Cell(0, ToneBFreq), "1141");

  Click(0, ToneBFreq);
  QTest::keyClick(&box, Qt::Key_End);
  QTest::mouseClick(&box, Qt::LeftButton);
  EXPECT_EQ(box.selectedText(), "1141");
  QTest::keyClick(&box, Qt::Key_Backspace);
  QTest::keyClick(&box, Qt::Key_Up);
  EXPECT_EQ(messages.Taken(), ErrorMessage("TTS Frequency Invalid!"));
  EXPECT_EQ(box.text(), "1141") << "the cell's text again";
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(0, ToneBFreq)) << "only tone A moves on";
}

TEST_F(TtsFrameTest, AnEditorStandsOverItsCellInItsColour) {
  const QColor colours[] = {{},
                            QColor(0, 128, 0),
                            QColor(0, 128, 0),
                            QColor(0, 128, 128),
                            QColor(0, 128, 128),
                            QColor(128, 128, 0),
                            QColor(128, 128, 0)};
  for (int column = ToneAFreq; column <= GroupCallDur; ++column) {
    QSignalSpy changed(frame, &TtsFrame::Changed);
    Click(7, column);
    QWidget& editor = column == ToneAFreq || column == ToneBFreq ? static_cast<QWidget&>(box) : list;
    QWidget& other = &editor == &box ? static_cast<QWidget&>(list) : box;
    EXPECT_TRUE(editor.isVisible() && editor.hasFocus() && !other.isVisible()) << column;
    EXPECT_EQ(editor.geometry(), grid.visualItemRect(grid.item(7, column))) << column;
    EXPECT_EQ(editor.palette().color(QPalette::Text), colours[column]) << column;
    EXPECT_EQ(grid.item(7, column)->foreground().color(), colours[column]) << column;
    EXPECT_EQ(changed.count(), 1) << column;
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

TEST_F(TtsFrameTest, EnterWalksThroughTheTableAndSpaceOpens) {
  grid.setFocus();
  for (int step = 1; step <= 48; ++step) {
    QTest::keyClick(&grid, Qt::Key_Return);
    ASSERT_EQ(Current(), std::pair(step / 6 % 8, step % 6 + 1));
  }
  QTest::keyClick(&grid, Qt::Key_Left); // the heading column is no place to be
  QTest::keyClicks(&grid, "5");         // nor does typing lead anywhere
  EXPECT_EQ(Current(), std::pair(0, ToneAFreq));
  EXPECT_FALSE(box.isVisible());
  QTest::keyClick(&grid, Qt::Key_Space);
  EXPECT_TRUE(box.isVisible());
}

TEST_F(TtsFrameTest, ATimeIsPickedFromTheList) {
  ASSERT_EQ(list.count(), 100);
  EXPECT_EQ(list.itemText(0) + list.itemText(99), "0.110.0");
  grid.item(1, GroupCallDur)->setText("25.5"); // a stored time beyond the list
  Click(1, GroupCallDur);
  EXPECT_EQ(list.currentIndex(), -1);
  window.GoElsewhere();
  EXPECT_FALSE(list.isVisible());
  EXPECT_EQ(Cell(1, GroupCallDur), "25.5");

  Click(1, GroupCallDur);
  list.showPopup();
  EXPECT_TRUE(list.isVisible()) << "its own popup does not hide it";
  list.view()->setCurrentIndex(list.model()->index(11, 0));
  QTest::keyClick(list.view(), Qt::Key_Return);
  EXPECT_EQ(Cell(1, GroupCallDur), "1.2");
  QTest::keyClick(&list, Qt::Key_Escape);
  EXPECT_FALSE(list.isVisible());
  EXPECT_TRUE(grid.hasFocus());
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
