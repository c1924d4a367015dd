// The two in-place editors.
#include "channel_fixture.h"

#include "cell_colours.h"

namespace mr4500x {
namespace {

const ShownMessages FrequencyInvalid = ErrorMessage("Frequency Invalid!");

TEST_F(ChannelFrameTest, TypedFrequenciesAreFilteredRoundedAndClamped) {
  struct Case {
    const char *typed, *step, *stored;
  };
  for (const int column : {1, 7}) {
    for (const Case& c :
         {Case{"458.0137", "2.5", "458.01250"}, Case{"458.0137", "6.25", "458.01250"},
          Case{"445.55125", "2.5", "445.55000"}, Case{"445.51875", "2.5", "445.52000"}, Case{"430", "2.5", "440.00000"},
          Case{"470", "2.5", "469.99750"}, Case{"470", "6.25", "469.99375"}, Case{"500", "6.25", "469.99375"},
          Case{"", "2.5", "450.00000"}, Case{"4x5,1", "6.25", "451.00000"}}) {
      SetCell(6, column, "450.00000");
      SetCell(6, column + 1, c.step);
      Click(6, column);
      ASSERT_EQ(frequency->selectedText(), "450.00000");
      EXPECT_EQ(frequency->palette().color(QPalette::Text).rgb(), column == 1 ? GreenText : TealText);
      QTest::keyClick(frequency, Qt::Key_Backspace);
      Type(c.typed);
      QTest::keyClick(frequency, Qt::Key_Return);
      EXPECT_EQ(Cell(6, column), c.stored) << c.typed;
      EXPECT_TRUE(frequency->isHidden() && grid->hasFocus());
      EXPECT_EQ(grid->currentColumn(), column); // the cell to the right
      EXPECT_EQ(Cell(6, 8 - column), "450.00000");
    }
    SetCell(6, column, "450.00000");
  }
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ChannelFrameTest, EachWayToLeaveTheFrequencyEditor) {
  const auto click = [this](int row, int column) { return [=, this] { Click(row, column); }; };
  const auto key = [this](Qt::Key k) { return [=, this] { QTest::keyClick(frequency, k); }; };
  struct Case {
    const char* name;
    std::function<void()> leave;
    bool commits;
    bool gridFocused;
  };
  for (const Case& c : {Case{"Enter", key(Qt::Key_Enter), true, true}, Case{"Escape", key(Qt::Key_Escape), false, true},
                        Case{"Tab", key(Qt::Key_Tab), true, false}, Case{"another cell", click(9, 12), true, true},
                        Case{"another control", [this] { elsewhere.setFocus(); }, true, false},
                        Case{"command", [this] { frame.CommitEditors(); }, true, true},
                        Case{"close", [this] { frame.HideEditors(); }, false, true}}) {
    for (const char* const typed : {"460", "4.6.0"}) {
      messages.shown.clear();
      // As a real box does, and as the focus would go when it closes.
      messages.whileShown = [this] {
        elsewhere.setFocus();
        frequency->setFocus();
      };
      SetCell(2, 1, "450.00000");
      Click(2, 1);
      changes = 0;
      Type(typed);
      c.leave();
      const bool valid = std::string(typed) == "460";
      EXPECT_EQ(Cell(2, 1), valid && c.commits ? "460.00000" : "450.00000") << c.name;
      EXPECT_EQ(messages.shown, valid || !c.commits ? NoMessage() : FrequencyInvalid) << c.name;
      EXPECT_FALSE(frame.HasOpenFrequencyEditor()) << c.name;
      EXPECT_EQ(changes > 0, (valid && c.commits) || std::string(c.name) == "another cell") << c.name;
      EXPECT_TRUE(!valid || grid->hasFocus() == c.gridFocused) << c.name;
    }
  }
}

TEST_F(ChannelFrameTest, AMenuOrAnotherWindowOnlyBorrowsTheFocus) {
  for (const int column : {1, 3}) {
    Click(1, column);
    QWidget& editor = column == 1 ? static_cast<QWidget&>(*frequency) : *tone;
    for (const auto reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason}) {
      QFocusEvent out(QEvent::FocusOut, reason);
      QApplication::sendEvent(&editor, &out);
      EXPECT_FALSE(editor.isHidden());
    }
  }
}

TEST_F(ChannelFrameTest, ArrowKeysStepWithoutRounding) {
  struct Case {
    const char *text, *step;
    Qt::Key key;
    const char* after;
  };
  for (const Case& c :
       {Case{"450.00000", "2.5", Qt::Key_Up, "450.00250"}, Case{"450", "6.25", Qt::Key_Down, "449.99375"},
        Case{"450.001", "2.5", Qt::Key_Up, "450.00350"}, Case{"469.99750", "2.5", Qt::Key_Up, "469.99750"},
        Case{"469.99750", "6.25", Qt::Key_Up, "470.00375"}, Case{"440", "2.5", Qt::Key_Down, "440"},
        Case{"440.00001", "2.5", Qt::Key_Down, "439.99751"}}) {
    SetCell(1, 8, c.step);
    Click(1, 7);
    Type(c.text);
    QTest::keyClick(frequency, c.key);
    EXPECT_EQ(frequency->text(), c.after);
    EXPECT_EQ(Cell(1, 7), "450.00000");
    frame.HideEditors();
  }
  Click(1, 7);
  Type("..");
  QTest::keyClick(frequency, Qt::Key_Up);
  EXPECT_EQ(messages.shown, FrequencyInvalid);
  EXPECT_TRUE(frequency->isHidden());
}

class CommaFrameTest : public ChannelFrameTest {
protected:
  CommaFrameTest() : ChannelFrameTest(',') {}
};

TEST_F(ChannelFrameTest, TheOtherSeparatorWaitsForTheKeypad) {
  Click(1, 1);
  Type("44,5.12345678");
  EXPECT_EQ(frequency->text(), "445.12345"); // nine characters
  frequency->selectAll();
  Type("4");
  QTest::keyClick(frequency, Qt::Key_Comma, Qt::KeypadModifier);
  Type("1,");
  EXPECT_EQ(frequency->text(), "4.1.");
}

TEST_F(CommaFrameTest, UsesTheSeparatorOfTheLocale) {
  SetCell(1, 1, "450,00000");
  SetCell(1, 2, "2,5");
  Click(1, 1);
  Type("451.,00626");
  EXPECT_EQ(frequency->text(), "451,00626");
  QTest::keyClick(frequency, Qt::Key_Return);
  EXPECT_EQ(Cell(1, 1), "451,00750");
  Click(1, 2);
  EXPECT_EQ(Cell(1, 2), "6,25");
  EXPECT_EQ(Cell(1, 1), "451,00625");
  Click(1, 2);
  EXPECT_EQ(Cell(1, 2), "2,5");
  Click(1, 13);
  EXPECT_EQ(Cell(1, 13), "12,5");
}

TEST_F(ChannelFrameTest, CopyAndPasteWorkOnTheWholeEditorUnfiltered) {
  clipboard.text = "kept";
  frame.Copy();
  frame.Paste();
  EXPECT_EQ(clipboard.text, "kept");
  Click(1, 1);
  QTest::keyClick(frequency, Qt::Key_End);
  frame.Copy();
  EXPECT_EQ(clipboard.text, "450.00000");
  clipboard.text = "4a1";
  QTest::keyClick(frequency, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(frequency->text(), "4a1");
  QTest::keyClick(frequency, Qt::Key_Return);
  EXPECT_EQ(messages.shown, FrequencyInvalid);
  EXPECT_EQ(Cell(1, 1), "450.00000");
}

TEST_F(ChannelFrameTest, ATonePickedForReceiveSetsTheTailCut) {
  const QColor grey = frame.palette().color(QPalette::Disabled, QPalette::Text);
  EXPECT_EQ(tone->count(), 206);
  EXPECT_FALSE(tone->isEditable());
  struct Case {
    int column;
    const char *before, *picked, *after, *tailBefore, *tailAfter;
  };
  for (const auto& [column, before, picked, after, tailBefore, tailAfter] :
       {Case{3, "OFF", "CTC88.5", "CTC88.5", "OFF", "ON"}, Case{3, "DCS023", "OFF", "OFF", "ON", "OFF"},
        Case{9, "OFF", "-DCS754", "-DCS754", "OFF", "OFF"}, Case{3, "CTC#77", "", "CTC#77", "OFF", "OFF"},
        Case{9, "DCS0A3", "DCS023", "DCS023", "ON", "ON"}}) {
    for (const int way : {0, 1, 2, 3}) {
      SetCell(5, column, before);
      SetCell(5, 6, tailBefore);
      Click(5, column);
      ASSERT_TRUE(tone->hasFocus());
      EXPECT_EQ(tone->currentIndex(), tone->findText(before));
      if (*picked != 0) tone->setCurrentText(picked);
      if (way == 0) QTest::keyClick(tone, Qt::Key_Return);
      if (way == 1) Click(9, 5);
      if (way == 2) frame.CommitEditors();
      if (way == 3) QTest::keyClick(tone, Qt::Key_Escape);
      EXPECT_TRUE(tone->isHidden());
      EXPECT_EQ(Cell(5, column), way == 3 ? before : after);
      EXPECT_EQ(Cell(5, 6), way == 3 ? tailBefore : tailAfter);
      if (column == 3 && way != 3 && *picked != 0) {
        EXPECT_EQ(ColourOf(5, 6), Cell(5, 6) == "ON" ? QColor(GreenText) : grey);
      }
    }
  }
}

TEST_F(ChannelFrameTest, AnEditorCoversItsCell) {
  for (const int column : {1, 3, 7, 9}) {
    Click(16, column);
    const QWidget& editor = column % 6 == 1 ? static_cast<QWidget&>(*frequency) : *tone;
    const QRect cell = grid->visualItemRect(grid->currentItem());
    const QPoint corner = grid->viewport()->mapTo(&frame, cell.topLeft());
    EXPECT_NEAR(editor.x(), corner.x(), 4);
    EXPECT_NEAR(editor.y(), corner.y(), 4);
    EXPECT_EQ(editor.height(), grid->rowHeight(0));
    EXPECT_NEAR(editor.width(), cell.width(), 4);
  }
  EXPECT_FALSE(frame.HasOpenFrequencyEditor()); // one at a time
}

} // namespace
} // namespace mr4500x
