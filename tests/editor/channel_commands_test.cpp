// Whole channels: selecting rows, and the commands on them by keys and from the menu.
#include "editor_fixture.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>

namespace mr4500x {
namespace {

constexpr char Heading[] =
    "CH No.\tRx Freq (MHz)\tStep (kHz)\tRx CTC/DCS\tRx SelCall\tCombo_Signaling\tTail Cut\t"
    "Tx Freq (MHz)\tStep (kHz)\tTx CTC/DCS\tTx SelCall\tHigh Tx Power\tPTT ID Enable\tBand With\t"
    "Group Call\tNo CH\tNo Tx\n";
constexpr char Refused[] = "Nothing was changed. These values are not allowed:\n";

struct CommandsTest : ChannelTest {
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&grid, Qt::Key(key), modifiers); }
  void ClickLabel(int row, Qt::KeyboardModifiers modifiers = {}) {
    const QHeaderView& labels = *grid.verticalHeader();
    QTest::mouseClick(labels.viewport(), Qt::LeftButton, modifiers, QPoint(5, labels.sectionPosition(row - 1) + 5));
  }
  std::set<int> Selected() {
    std::set<int> rows;
    for (const QModelIndex& index : grid.selectionModel()->selectedRows())
      rows.insert(index.row() + 1);
    return rows;
  }
  void Copy() { Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier); }
  void Paste() { Key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier); }
  void Undo() { Key(Qt::Key_Z, Qt::ControlModifier); }
  void SetClipboard(const std::string& text) { QApplication::clipboard()->setText(QString::fromStdString(text)); }
  std::string Clipboard() { return QApplication::clipboard()->text().toStdString(); }
  ChannelTexts Channel(int row) { return panel.Shown().channels[static_cast<std::size_t>(row - 1)]; }
};

TEST_F(CommandsTest, FourChannelsAreCopiedMovedFilledClearedAndAllOfThatUndone) {
  image.ChannelBlock(10, 12) |= 0x05; // what the editor does not show
  panel.Fill();
  const Configuration before = panel.Shown();
  const RadioImage imageBefore = image;
  Click(2, 11);
  Click(3, 2);
  QTest::mouseClick(&Get<QAbstractButton>("chkTx(3)"), Qt::LeftButton);
  ClickLabel(1);
  ClickLabel(4, Qt::ShiftModifier);
  Copy();
  const ChannelTexts second = Channel(2), third = Channel(3), fourth = Channel(4);
  const std::string copied = Clipboard();
  EXPECT_EQ(copied.substr(0, copied.find('\n') + 1), Heading);
  EXPECT_NE(
      copied.find(
          "\nCH4\t440.00000\t6.25\tOFF\tOFF\tOR\tOFF\t440.00000\t6.25\tOFF\tOFF\tPermit\tOFF\t25\tOFF\tno\tyes\n"),
      std::string::npos)
      << copied;
  ClickLabel(9);
  Paste();
  EXPECT_TRUE(Channel(10) == second && Channel(11) == third && Channel(12) == fourth);
  ClickLabel(12);
  ClickLabel(11, Qt::ControlModifier);
  Key(Qt::Key_Up, Qt::AltModifier);
  EXPECT_TRUE(Channel(10) == third && Channel(11) == fourth && Channel(12) == second);
  EXPECT_EQ(Selected(), (std::set{10, 11}));
  EXPECT_EQ(image.ChannelBlock(9, 12) & 0x07, 0x05);
  Key(Qt::Key_Down, Qt::AltModifier);
  Key(Qt::Key_Down, Qt::AltModifier);
  EXPECT_TRUE(Channel(12) == third && Channel(13) == fourth);
  grid.setCurrentCell(1, 10);
  Key(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(Cell(12, 11) + Cell(13, 11), "ProhibitProhibit");

  Key(Qt::Key_F10, Qt::ShiftModifier);
  auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  menu->setActiveAction(menu->actions()[9]);
  QTest::keyClick(menu, Qt::Key_Return);
  EXPECT_TRUE(Channel(12) == Channel(13) && Channel(12).noCh);
  panel.ShowFunctionView();
  QContextMenuEvent asked(QContextMenuEvent::Mouse, {3, 3}, panel.mapToGlobal(QPoint(3, 3)));
  QCoreApplication::sendEvent(&panel, &asked);
  auto* const shortMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(shortMenu, nullptr);
  EXPECT_EQ(shortMenu->actions().size(), 4);
  EXPECT_EQ(shortMenu->pos(), asked.globalPos());
  EXPECT_EQ(shortMenu->actions()[2]->text(), "&Undo Clear Channels");
  shortMenu->close();
  panel.ShowChannelView();
  grid.setFocus();
  EXPECT_EQ(messages.shown, Lines());
  for (int i = 0; i < 9; ++i)
    Undo();
  EXPECT_EQ(panel.Shown(), before);
  EXPECT_EQ(image, imageBefore);
}

TEST_F(CommandsTest, PasteTakesWhatASpreadsheetGivesOrRefusesAllOfItInOneMessage) {
  const Configuration before = panel.Shown();
  grid.setCurrentCell(14, 5);
  SetClipboard("445.5\t6.25\tCTC88.5\n446\n"); // the grid's order
  Paste();
  EXPECT_EQ(Cell(15, 1) + Cell(15, 3) + Cell(15, 6) + Cell(16, 1) + Cell(16, 3), "445.50000CTC88.5ON446.00000OFF");
  EXPECT_FALSE(Channel(15).noCh || Channel(16).noCh);
  Undo();
  EXPECT_EQ(messages.shown, Lines());
  SetClipboard("445.5\n500\n");
  Paste();
  EXPECT_EQ(messages.Taken(), Lines{std::string("!|Paste Channels|") + Refused +
                                    "\nCH16 Rx Freq (MHz): 500, allowed: 440 to 469.99375 MHz"});
  EXPECT_EQ(panel.Shown(), before);
  SetClipboard("Location\tName\tFrequency\n3\tGate\t446\n");
  Paste();
  EXPECT_EQ(messages.Taken(), Lines{"|Paste Channels|The channels were imported, but the radio has no settings for "
                                    "these columns:\n\nName"});
  changed.clear();
  QSignalSpy reported(&panel, &EditorPanel::StatusMessage);
  for (const char* const nothing : {"", " \n\t\n"}) {
    SetClipboard(nothing);
    Paste();
    EXPECT_EQ(reported.takeLast().at(0), "There is nothing to paste.");
  }
  SetClipboard("445.5\t6.25\n");
  grid.setFocus();
  panel.Paste();
  EXPECT_EQ(reported.takeLast().at(0), "Channels are pasted by Ctrl+Shift+V.") << "no row is selected";
  EXPECT_EQ(changed.count(), 0);
}

TEST_F(CommandsTest, FillDownListsAllChannelsThatRefuse) {
  SetCell(1, 1, "440.00250");
  const Configuration before = panel.Shown();
  ClickLabel(1);
  ClickLabel(16, Qt::ShiftModifier);
  Key(Qt::Key_D, Qt::ControlModifier);
  const std::string reported = messages.Taken().at(0);
  EXPECT_TRUE(
      reported.starts_with(std::string("!|Fill Down|") + Refused + "\nCH2 Rx Freq (MHz): 440.00250, allowed: a m"));
  EXPECT_TRUE(reported.ends_with("\nand 3 more")) << reported;
  EXPECT_EQ(panel.Shown(), before);
}

TEST(ChannelCommands, BeginAtTheFirstChannelInAGridThatNeverHadTheFocus) {
  ScriptedMessages messages;
  RadioImage image;
  const FieldTexts texts = BuildFieldTexts('.');
  EditorPanel panel(image, texts, messages);
  panel.FillReset({2026, 1, 2, 3, 4, 5});
  QApplication::clipboard()->setText("446.00625");
  for (const char* const command : {"Paste", "Fill", "Copy", "Clear", "Up", "Down"})
    panel.findChild<QAction*>(QLatin1String("mnuChannels") + command)->trigger();
  EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 2) << "the heading and one channel";
  EXPECT_EQ(panel.Shown().channels[15][GridColumn::RxFreq], "440.00000");
}

} // namespace
} // namespace mr4500x
