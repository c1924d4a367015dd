// The two in-place editors.
#include "channel_fixture.h"

namespace mr4500x {
namespace {

ShownMessages FrequencyInvalid(bool valid) {
  return ErrorMessage(valid ? "" : "Frequency Invalid!");
}

// What a key makes of the text typed into the editor, and what Enter then stores.
TEST_F(ChannelFrameTest, FrequenciesAreFilteredRoundedAndClamped) {
  constexpr auto none = Qt::Key_End;
  const char* const before = "450.00000";
  const std::tuple<const char*, const char*, Qt::Key, Qt::KeyboardModifiers, const char*, const char*> cases[] = {
      {"458.0137", "2.5", none, {}, "458.0137", "458.01250"},
      {"500", "6.25", none, {}, "500", "469.99375"},
      {"", "2.5", none, {}, "", before},
      {"450.001", "2.5", Qt::Key_Up, {}, "450.00350", "450.00250"},
      {"450", "6.25", Qt::Key_Down, {}, "449.99375", "449.99375"},
      {"4x4,5.12345678", "2.5", none, {}, "445.12345", "445.12250"}, // nine characters
      {"1", "2.5", Qt::Key_V, Qt::ControlModifier, "4a1", before},   // in the place of the whole text
      {"4", "2.5", Qt::Key_Comma, Qt::KeypadModifier, "4.", "440.00000"},
      {"4,", "2.5", Qt::Key_Comma, {}, "4..", before}}; // both separators, once the keypad's was pressed
  int column = 1;
  for (const auto& [typed, step, key, modifiers, text, stored] : cases) {
    SCOPED_TRACE(typed);
    column = 8 - column;
    SetCell(6, column, before);
    SetCell(6, column + 1, step);
    Click(6, column);
    EXPECT_EQ(frequency->selectedText(), before);
    QTest::keyClick(frequency, Qt::Key_Backspace);
    Type(typed);
    QApplication::clipboard()->setText("4a1");
    QTest::keyClick(frequency, key, modifiers);
    EXPECT_EQ(frequency->text(), text);
    QTest::keyClick(frequency, Qt::Key_C, Qt::ControlModifier); // nothing is selected
    EXPECT_EQ(QApplication::clipboard()->text(), text);
    QTest::keyClick(frequency, Qt::Key_Return);
    EXPECT_EQ(Cell(6, column), stored);
    EXPECT_EQ(grid->currentColumn(), column) << "the cell to the right";
    EXPECT_EQ(messages.Taken(), FrequencyInvalid(*text == 0 || stored != before));
    SetCell(6, column, before);
    EXPECT_EQ(Cell(6, 8 - column), before);
  }
  Click(6, column);
  Type("..");
  QTest::keyClick(frequency, Qt::Key_Up);
  EXPECT_TRUE(frame.OpenEntry() == nullptr && messages.shown == FrequencyInvalid(false));
}

TEST_F(ChannelFrameTest, EachWayToLeaveTheFrequencyEditor) {
  const auto key = [this](Qt::Key k) { return [=, this] { QTest::keyClick(frequency, k); }; };
  messages.whileShown = [this] { // as a real box does, and as the focus would go when it closes
    window.GoElsewhere();
    frequency->setFocus();
  };
  // Whether it commits, whether the grid then has the focus.
  const std::tuple<const char*, std::function<void()>, bool, bool> ways[] = {
      {"Enter", key(Qt::Key_Enter), true, true},
      {"Escape", key(Qt::Key_Escape), false, true},
      {"Tab", key(Qt::Key_Tab), true, false},
      {"another control", [this] { window.GoElsewhere(); }, true, false},
      {"another cell", [this] { Click(9, 3); }, true, false},
      {"command", [this] { frame.CommitEditors(); }, true, true},
      {"close", [this] { frame.HideEditors(); }, false, true}};
  for (const auto& [name, leave, commits, gridFocused] : ways) {
    for (const bool valid : {true, false}) {
      SCOPED_TRACE(name + std::string(valid ? " valid" : " invalid"));
      SetCell(2, 1, "450.00000");
      Click(2, 1);
      Type(valid ? "460" : "4.6.0");
      changes = 0;
      leave();
      EXPECT_EQ(changes > 0, (valid && commits) || grid->currentRow() == 8) << "the other cell tells that it opened";
      EXPECT_EQ(Cell(2, 1), valid && commits ? "460.00000" : "450.00000");
      EXPECT_EQ(messages.Taken(), FrequencyInvalid(valid || !commits));
      EXPECT_TRUE(frame.OpenEntry() == nullptr && (!valid || grid->hasFocus() == gridFocused));
    }
  }
}

TEST_F(ChannelFrameTest, AMenuOrAnotherWindowOnlyBorrowsTheFocus) {
  for (const auto& [column, editor] : {std::pair<int, QWidget*>{1, frequency}, {3, tone}}) {
    Click(1, column);
    for (const auto reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason}) {
      QFocusEvent out(QEvent::FocusOut, reason);
      QApplication::sendEvent(editor, &out);
      EXPECT_FALSE(editor->isHidden()) << column << " reason " << reason;
    }
  }
  EXPECT_EQ(frame.OpenEntry(), nullptr) << "one editor at a time";
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
  Click(1, 13);
  EXPECT_EQ(Cell(1, 1) + " " + Cell(1, 2) + " " + Cell(1, 13), "451,00625 6,25 12,5");
}

TEST_F(ChannelFrameTest, ATonePickedForReceiveSetsTheTailCut) {
  const std::tuple<int, const char*, const char*, const char*, const char*, const char*> cases[] = {
      {3, "OFF", "CTC88.5", "CTC88.5", "OFF", "ON"},
      {3, "DCS023", "OFF", "OFF", "ON", "OFF"},
      {9, "OFF", "-DCS754", "-DCS754", "OFF", "OFF"},
      {3, "CTC#77", "", "CTC#77", "OFF", "OFF"}};
  for (const auto& [column, before, picked, after, tailBefore, tailAfter] : cases) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
      SCOPED_TRACE(std::string(before) + " to " + picked + " key " + std::to_string(key));
      SetCell(5, column, before);
      SetCell(5, 6, tailBefore);
      Click(5, column);
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
