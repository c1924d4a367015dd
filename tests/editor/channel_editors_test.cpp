// The two in-place editors of the channel grid.
#include "editor_fixture.h"

namespace mr4500x {
namespace {

Lines FrequencyInvalid(bool valid) {
  return ErrorMessage(valid ? "" : "Frequency Invalid!");
}

TEST_F(ChannelTest, FrequenciesAreFilteredRoundedAndClamped) {
  const std::string before = "450.00000";
  int column = 1;
  for (const Row& row : RowsOf(CASES "frequency_entries.txt", "[^:]+: \"(.*)\", (\\S+), (\\S+) -> (.*) -> (.*)")) {
    const auto& [line, typed, step, key, text, stored] = std::tie(row[0], row[1], row[2], row[3], row[4], row[5]);
    SCOPED_TRACE(line);
    column = 8 - column;
    SetCell(6, column, before);
    SetCell(6, column + 1, step);
    Click(6, column);
    EXPECT_EQ(frequency.selectedText().toStdString(), before);
    QTest::keyClick(&frequency, Qt::Key_Backspace);
    QTest::keyClicks(&frequency, QString::fromStdString(typed));
    QApplication::clipboard()->setText("\t4a1 \r\n");
    QTest::keySequence(&frequency, QKeySequence(QString::fromStdString(key)));
    EXPECT_EQ(frequency.text().toStdString(), text);
    QTest::keyClick(&frequency, Qt::Key_C, Qt::ControlModifier); // nothing is selected
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), text);
    QTest::keyClick(&frequency, Qt::Key_Return);
    EXPECT_EQ(Cell(6, column), stored);
    EXPECT_EQ(grid.currentColumn(), column) << "the cell to the right";
    EXPECT_EQ(messages.Taken(), FrequencyInvalid(text.empty() || stored != before));
  }
  Click(6, 1);
  QTest::keyClicks(&frequency, "4.6.0");
  QTest::keyClick(&frequency, Qt::Key_Up);
  EXPECT_EQ(messages.Taken(), FrequencyInvalid(false));
  EXPECT_TRUE(frequency.isHidden()) << "a step from what is not a frequency";
}

TEST_F(ChannelTest, AMenuOrAnotherWindowTakesTheFocusOnlyTemporarily) {
  for (const auto& [column, editor] : {std::pair<int, QWidget*>{1, &frequency}, {3, &tone}}) {
    Click(1, column);
    for (const auto reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason}) {
      QFocusEvent out(QEvent::FocusOut, reason);
      QApplication::sendEvent(editor, &out);
      EXPECT_FALSE(editor->isHidden()) << column << " reason " << reason;
    }
  }
}

struct CommaTest : ChannelTest {
  CommaTest() : ChannelTest(',') {}
};

// What the status bar says of an entry.
TEST_F(CommaTest, TellsWhereAFrequencyIsMovedAndWhatIsDropped) {
  QSignalSpy reported(&panel, &EditorPanel::StatusMessage);
  for (const Row& row : RowsOf(CASES "frequency_messages.txt", "[^:]+: (types|pastes) (\\S+) -> (\\S+)(?: -> (.*))?")) {
    const auto& [line, how, entry, stored, says] = std::tie(row[0], row[1], row[2], row[3], row[4]);
    Click(6, 1);
    QApplication::clipboard()->setText(QString::fromStdString(entry));
    if (how == "types") QTest::keyClicks(&frequency, QString::fromStdString(entry));
    if (how == "pastes") QTest::keyClick(&frequency, Qt::Key_V, Qt::ControlModifier);
    Click(6, 12); // a further change
    QCoreApplication::processEvents();
    EXPECT_EQ(Cell(6, 1), stored) << line;
    QStringList lines;
    for (const auto& arguments : std::exchange(static_cast<QList<QList<QVariant>>&>(reported), {}))
      lines.append(arguments.at(0).toString());
    EXPECT_EQ(lines.join(" | ").toStdString(), says) << line;
  }
}

TEST_F(ChannelTest, TabOpensTheNextCellThatHasAnEditor) {
  Get<QCheckBox>("chkCH(1)").setChecked(true);
  Get<QCheckBox>("chkTx(2)").setChecked(true);
  Click(1, 7);
  std::string opened;
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab}) {
    QTest::keyClick(QApplication::focusWidget(), key);
    opened += std::to_string(grid.currentRow() + 1) + ',' + std::to_string(grid.currentColumn() + 1) +
              (frequency.hasFocus() ? 'f'
               : tone.hasFocus()    ? 't'
                                    : '-') +
              ' ';
  }
  EXPECT_EQ(opened, "1,9t 3,1f 3,3t 3,1f ");
  Click(16, 9);
  QTest::keyClicks(&tone, "88.5");
  QTest::keyClick(&tone, Qt::Key_Tab);
  EXPECT_EQ(Cell(16, 9), "CTC88.5");
  Click(16, 9);
  QTest::keyClicks(&tone, "7");
  const int interval = QApplication::keyboardInputInterval();
  QApplication::setKeyboardInputInterval(0); // the user pauses, and begins again
  QTest::qWait(2);
  QTest::keyClicks(&tone, "8");
  QApplication::setKeyboardInputInterval(interval);
  QTest::keyClick(&tone, Qt::Key_Tab);
  EXPECT_EQ(Cell(16, 9), "CTC82.5");
  EXPECT_TRUE(tone.isHidden() && frequency.isHidden() && grid.hasFocus()) << "after the last one";
}

} // namespace
} // namespace mr4500x
