// The two in-place editors.
#include "channel_fixture.h"

namespace mr4500x {
namespace {

const ShownMessages FrequencyInvalid = ErrorMessage("Frequency Invalid!");

TEST_F(ChannelFrameTest, TypedFrequenciesAreFilteredRoundedAndClamped) {
  const std::tuple<const char*, const char*, const char*> cases[] = {{"458.0137", "2.5", "458.01250"},
                                                                     {"500", "6.25", "469.99375"},
                                                                     {"", "2.5", "450.00000"},
                                                                     {"4x5,1", "6.25", "451.00000"}};
  for (const int column : {1, 7}) {
    for (const auto& [typed, step, stored] : cases) {
      SCOPED_TRACE(typed);
      SetCell(6, column, "450.00000");
      SetCell(6, column + 1, step);
      Click(6, column);
      EXPECT_EQ(frequency->selectedText(), "450.00000");
      QTest::keyClick(frequency, Qt::Key_Backspace);
      Type(typed);
      QTest::keyClick(frequency, Qt::Key_Return);
      EXPECT_EQ(Cell(6, column), stored);
      EXPECT_EQ(grid->currentColumn(), column) << "the cell to the right";
      SetCell(6, column, "450.00000");
      EXPECT_EQ(Cell(6, 8 - column), "450.00000");
    }
  }
}

TEST_F(ChannelFrameTest, EachWayToLeaveTheFrequencyEditor) {
  const auto key = [this](Qt::Key k) { return [=, this] { QTest::keyClick(frequency, k); }; };
  struct Case {
    const char* name;
    std::function<void()> leave;
    bool commits;
    bool gridFocused;
  };
  for (const Case& c : {Case{"Enter", key(Qt::Key_Enter), true, true}, Case{"Escape", key(Qt::Key_Escape), false, true},
                        Case{"Tab", key(Qt::Key_Tab), true, false},
                        Case{"another control", [this] { window.GoElsewhere(); }, true, false},
                        Case{"another cell", [this] { Click(9, 12); }, true, true},
                        Case{"command", [this] { frame.CommitEditors(); }, true, true},
                        Case{"close", [this] { frame.HideEditors(); }, false, true}}) {
    for (const bool valid : {true, false}) {
      SCOPED_TRACE(c.name + std::string(valid ? " valid" : " invalid"));
      messages.whileShown = [this] { // as a real box does, and as the focus would go when it closes
        window.GoElsewhere();
        frequency->setFocus();
      };
      SetCell(2, 1, "450.00000");
      Click(2, 1);
      changes = 0;
      Type(valid ? "460" : "4.6.0");
      c.leave();
      EXPECT_EQ(Cell(2, 1), valid && c.commits ? "460.00000" : "450.00000");
      EXPECT_EQ(messages.Taken(), valid || !c.commits ? ErrorMessage("") : FrequencyInvalid);
      EXPECT_EQ(frame.OpenEntry(), nullptr);
      EXPECT_EQ(changes > 0, (valid && c.commits) || std::string(c.name) == "another cell");
      EXPECT_TRUE(!valid || grid->hasFocus() == c.gridFocused);
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
      EXPECT_FALSE(editor.isHidden()) << column << " reason " << reason;
    }
  }
  EXPECT_EQ(frame.OpenEntry(), nullptr) << "one editor at a time";
}

TEST_F(ChannelFrameTest, WhatKeysMakeOfTheTextInTheEditor) {
  const std::tuple<const char*, const char*, Qt::Key, Qt::KeyboardModifiers, const char*> cases[] = {
      {"450.001", "2.5", Qt::Key_Up, {}, "450.00350"}, // not rounded
      {"450", "6.25", Qt::Key_Down, {}, "449.99375"},
      {"44,5.12345678", "2.5", Qt::Key_Comma, {}, "445.12345"}, // nine characters
      {"4", "2.5", Qt::Key_Comma, Qt::KeypadModifier, "4."},
      {"4,", "2.5", Qt::Key_Comma, {}, "4.."}, // once the keypad's has been pressed
      {"1", "2.5", Qt::Key_V, Qt::ControlModifier, "4a1"}};
  QApplication::clipboard()->setText("4a1");
  for (const auto& [typed, step, key, modifiers, after] : cases) {
    SetCell(1, 8, step);
    Click(1, 7);
    Type(typed);
    QTest::keyClick(frequency, key, modifiers);
    EXPECT_EQ(frequency->text(), after) << typed;
    EXPECT_EQ(Cell(1, 7), "450.00000") << typed;
    QTest::keyClick(frequency, Qt::Key_C, Qt::ControlModifier); // nothing is selected
    EXPECT_EQ(QApplication::clipboard()->text(), after);
    QApplication::clipboard()->setText("4a1");
    frame.HideEditors();
  }
  Click(1, 7);
  Type("..");
  QTest::keyClick(frequency, Qt::Key_Up);
  EXPECT_EQ(frame.OpenEntry(), nullptr);
  EXPECT_EQ(messages.shown, FrequencyInvalid);
}

struct CommaFrameTest : ChannelFrameTest {
  CommaFrameTest() : ChannelFrameTest(',') {}
};

TEST_F(CommaFrameTest, UsesTheSeparatorOfTheLocale) {
  SetCell(1, 2, "2,5");
  Click(1, 1);
  Type("451.,00626");
  QTest::keyClick(frequency, Qt::Key_Return);
  EXPECT_EQ(Cell(1, 1), "451,00750");
  Click(1, 2);
  EXPECT_EQ(Cell(1, 1) + " " + Cell(1, 2), "451,00625 6,25");
  Click(1, 13);
  EXPECT_EQ(Cell(1, 13), "12,5");
}

TEST_F(ChannelFrameTest, ATonePickedForReceiveSetsTheTailCut) {
  const std::tuple<int, const char*, const char*, const char*, const char*, const char*> cases[] = {
      {3, "OFF", "CTC88.5", "CTC88.5", "OFF", "ON"},
      {3, "DCS023", "OFF", "OFF", "ON", "OFF"},
      {9, "OFF", "-DCS754", "-DCS754", "OFF", "OFF"},
      {3, "CTC#77", "", "CTC#77", "OFF", "OFF"},
      {9, "DCS0A3", "OFF", "OFF", "ON", "ON"}};
  for (const auto& [column, before, picked, after, tailBefore, tailAfter] : cases) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
      SCOPED_TRACE(std::string(before) + " to " + picked + " key " + std::to_string(key));
      SetCell(5, column, before);
      SetCell(5, 6, tailBefore);
      Click(5, column);
      EXPECT_EQ(tone->currentIndex(), tone->findText(before));
      if (*picked != 0) tone->setCurrentText(picked);
      QTest::keyClick(tone, key);
      EXPECT_TRUE(tone->isHidden() && grid->hasFocus());
      EXPECT_EQ(Cell(5, column), key == Qt::Key_Escape ? before : after);
      EXPECT_EQ(Cell(5, 6), key == Qt::Key_Escape ? tailBefore : tailAfter);
    }
  }
}

} // namespace
} // namespace mr4500x
