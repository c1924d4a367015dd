// The comparison of the editor with a data file, and lists of channels that are dropped on the window.
#include "changes.h"
#include "fill_messages.h"
#include "program_fixture.h"
#include "recent_files.h"

#include "wheel.h"
#include <QAbstractItemModelTester>
#include <QAbstractProxyModel>

namespace mr4500x {
namespace {

struct CompareTest : ProgramTest {
  CompareTest() { Activate(window.get()); }
  static void Activate(QWidget* which) {
    QCoreApplication::processEvents();
    which->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([which] { return QApplication::activeWindow() == which; }));
  }
  QTableWidget& grid = *window->findChild<QTableWidget*>("gridChannel");

  std::string Cell(int row, int column) { return grid.item(row - 1, column - 1)->text().toStdString(); }
  void Undo() { QTest::keyClick(&grid, Qt::Key_Z, Qt::ControlModifier); }
  // Changes settings in the image of the file.
  void Change(std::initializer_list<std::pair<const char*, std::string>> values) {
    std::vector<Assignment> changes;
    for (const auto& [field, value] : values)
      changes.push_back({*FindField(field), value, /*asStored*/ true});
    ASSERT_TRUE(ApplyChanges(image, changes, BuildFieldTexts('.')).empty());
  }
  void OpenCell(int row, const char* typed) {
    grid.setFocus();
    grid.setCurrentCell(row - 1, 0);
    QTest::keyClick(&grid, Qt::Key_Space);
    QTest::keyClicks(QApplication::focusWidget(), typed);
  }
  void PutBadFiles() {
    Put("short.K4X", "LR7200");
    RadioImage zero = image;
    zero.ResetTimeBlock[StandardByte] = 0;
    EXPECT_TRUE(SaveDataFile(files, Path("zero.K4X"), zero));
  }
  // By the menu of the grid, like a user without a mouse.
  QDialog* Compare(const std::string& name) {
    desktop.paths.emplace_back(Path(name));
    Activate(window.get());
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_F10, Qt::ShiftModifier);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    menu->setActiveAction(Item("mnuChannelsCompare"));
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(desktop.happened.front(), "dialog Compare with File");
    auto* const opened = window->findChild<QDialog*>("frmCompare");
    if (opened == nullptr) return nullptr;
    table = opened->findChild<QTableView*>("tblDifferences");
    Activate(opened);
    EXPECT_EQ(QApplication::focusWidget(), table);
    return opened;
  }
  std::string Rows() {
    QCoreApplication::processEvents();
    std::string rows;
    for (int row = 0; row < table->model()->rowCount(); ++row)
      for (int column = 0; column < 4; ++column)
        rows += table->model()->index(row, column).data().toString().toStdString() + (column == 3 ? "\n" : "|");
    return rows;
  }
  std::string Result() { return window->findChild<QLabel*>("lblResult")->text().toStdString(); }
  void Press(int key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(table, Qt::Key(key), modifiers); }
  QPoint Middle(int row, int column) { return table->visualRect(table->model()->index(row, column)).center(); }

  QTableView* table = nullptr;
  const std::string nothing = "Nothing was changed. These values are not allowed:\n\n";
  const std::string refused = "!|Compare with File|" + nothing, refusedImport = "!|Import Channels|" + nothing;
};

TEST_F(CompareTest, ListsWhatDiffersFromTheFileAndTakesItsValuesAsStepsThatAreUndone) {
  Change({{"select_call", "5 Tone"},
          {"channels.2.rx_tone", "CTC88.5"},
          {"channels.2.tx_step", "2.5"},
          {"channels.10.tx_freq", "441.00000"},
          {"channels.12.rx_freq", "500.00000"}});
  image.ChannelBlock(5, 12) |= 0x05; // what no setting shows
  PutDataFile("other.K4X");

  OpenCell(1, "442");
  QDialog* const frmCompare = Compare("other.K4X");
  ASSERT_NE(frmCompare, nullptr);
  EXPECT_EQ(frmCompare->windowTitle().toStdString(), "Compare with " + Path("other.K4X"));
  const std::string typed = "Channels|CH1 Rx Freq|442.00000|440.00000\n";
  const std::string rest = "Channels|CH10 Tx Freq|440.00000|441.00000\n"
                           "Channels|CH12 Rx Freq|440.00000|500.00000\n";
  const std::string call = "General|Select Call|TTS|5 Tone\n", byte = "Bytes|ChannelBlock 92|0xA8|0xAD\n";
  const std::string step = "Channels|CH2 Tx Step|6.25|2.5\n";
  const std::string tone = "Channels|CH2 Rx CTC/DCS|OFF|CTC88.5\nChannels|CH2 Tail Cut|OFF|ON\n";
  EXPECT_EQ(Rows(), typed + tone + step + rest + call + byte);
  const auto* const shown = qobject_cast<QAbstractProxyModel*>(table->model());
  for (QAbstractItemModel* const model : {table->model(), shown->sourceModel(), grid.model()}) {
    const QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_FALSE(model->data({}, Qt::DisplayRole).isValid());
  }
  EXPECT_EQ(Result(), "Differences: 8. Enter or a double-click takes the value from there.");

  Press(Qt::Key_Down);
  Press(Qt::Key_Return); // Tail Cut follows
  Press(Qt::Key_Enter);
  EXPECT_EQ(Rows(), typed + rest + call + byte);
  EXPECT_EQ(Cell(2, 3) + Cell(2, 5) + Cell(2, 6) + Cell(2, 8), "CTC88.5ORON2.5");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Status(1), "Undone: CH2 Step");
  EXPECT_EQ(Rows(), typed + step + rest + call + byte);
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, Middle(4, 2));
  EXPECT_EQ(table->selectionModel()->selectedRows().size(), 1);
  QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, Middle(4, 2));
  EXPECT_EQ(Rows(), typed + step + rest + byte);
  EXPECT_TRUE(window->State().ModifiedFlag);
  Happened();

  Press(Qt::Key_End, Qt::ControlModifier);
  const RadioImage before = window->Panel().Collected();
  Press(Qt::Key_Return);
  EXPECT_EQ(Rows(), typed + step + rest);
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Status(1), "Undone: Take Other Value");
  EXPECT_EQ(window->Panel().Collected(), before);
  Press(Qt::Key_A, Qt::ControlModifier); // one that is refused is enough
  Press(Qt::Key_Return);
  EXPECT_EQ(Happened(), Lines{refused + "CH12 Rx Freq (MHz): 500.00000, allowed: 440 to 469.99375 MHz"});
  EXPECT_EQ(Rows(), typed + step + rest + byte);

  QHeaderView* const headings = table->horizontalHeader();
  const QPoint field(headings->sectionViewportPosition(1) + 20, 5);
  for (int click = 0; click < 2; ++click)
    QTest::mouseClick(headings->viewport(), Qt::LeftButton, {}, field);
  QTest::keyClick(frmCompare, Qt::Key_F, Qt::AltModifier);
  QTest::keyClicks(QApplication::focusWidget(), "tx");
  table->setFocus();
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "Section\tField\tHere\tThere\n"
                                                             "Channels\tCH10 Tx Freq\t440.00000\t441.00000\n"
                                                             "Channels\tCH2 Tx Step\t6.25\t2.5\n");
  Press(Qt::Key_Return);
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(Cell(2, 8) + ' ' + Cell(10, 7), "2.5 441.00000");
  EXPECT_EQ(Result().substr(0, 21), "Differences: 0 of 3. ");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Cell(2, 8) + ' ' + Cell(10, 7), "6.25 440.00000");
  Press(Qt::Key_Escape);
  QTest::qWait(0);
  EXPECT_EQ(window->findChild<QDialog*>("frmCompare"), nullptr);
}

TEST_F(CompareTest, TakesAFileOfAnotherBandInOneStep) {
  const std::uint8_t record = image.ChannelBlock(5, 12);
  image.ChannelBlock(5, 12) |= 0x05; // a new lower limit also resets bytes that no setting shows
  image.ChannelBlock(7, 12) |= 0x05; // even if the file has the same
  PutDataFile("here.K4X");
  OpenFile("here.K4X");
  image.ChannelBlock(5, 12) = record;
  image.ChannelBlock(6, 12) |= 0x05;
  Change({{"band.lower", "400"},
          {"band.upper", "430"},
          {"select_call", "5 Tone"},
          {"auto_reset_time", "10"},
          {"channels.3.rx_freq", "412.50000"},
          {"channels.3.in_use", "true"},
          {"channels.3.tx_selcall", "5T 12345"},
          {"keys.short_a", "Emergency Alert"}});
  PutDataFile("other.K4X");
  OpenCell(1, "442");
  ASSERT_NE(Compare("other.K4X"), nullptr);
  Happened();
  const RadioImage before = window->Panel().Collected();
  const std::string all = Rows();
  const Lines asked = {"!|Frequency Band Change|Change the lower limit value, all data will be initiated. Do you want "
                       "to continue?|YN"};
  Press(Qt::Key_A, Qt::ControlModifier);
  desktop.answers = {Answer::No, Answer::Yes};
  Press(Qt::Key_Return);
  EXPECT_EQ(Happened(), asked);
  EXPECT_EQ(Rows(), all);
  EXPECT_EQ(window->Panel().Collected(), before);
  Press(Qt::Key_Return);
  EXPECT_EQ(Happened(), asked);
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(Cell(3, 1) + ' ' + Cell(3, 10), "412.50000 5T 12345");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window->Panel().Collected(), before);
  EXPECT_EQ(window->findChild<QLineEdit*>("txtResetTime")->text(), "5") << "below OFF";
}

TEST_F(CompareTest, FollowsTheEditorAndReportsAFileAsOpenDoes) {
  PutDataFile("same.K4X");
  EXPECT_TRUE(AddRecent(files, Path("MR4500X.ini"), Path("none.K4X")));
  PutBadFiles();
  const std::string undecodable = std::string("!|") + DataErrorTitle + '|' + DataErrorText;
  for (const auto& [name, reported] :
       {std::pair("none.K4X", damaged), {"short.K4X", damaged}, {"zero.K4X", undecodable}}) {
    EXPECT_EQ(Compare(name), nullptr) << name;
    EXPECT_EQ(Happened(), (Lines{"dialog Compare with File", reported})) << name;
  }
  EXPECT_EQ(RecentFiles(files, Path("MR4500X.ini")), RecentFileList()) << "what is missing goes";
  ASSERT_NE(Compare("same.K4X"), nullptr);
  const std::string none = "There are no differences.";
  EXPECT_EQ(Result(), none);
  Activate(window.get());
  OpenCell(1, "450.5");
  EXPECT_EQ(Rows(), "Channels|CH1 Rx Freq|450.50000|440.00000\n") << "while it is typed";
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(Rows(), "");
  auto* const tune = window->findChild<QComboBox*>("cboTuneSwitch"); // marks nothing as changed
  Choose("mnuOptionFunction");
  tune->setFocus();
  QTest::keyClick(tune, Qt::Key_Home);
  EXPECT_EQ(Rows(), "General|Manual Tune|Enable|Disable\n");
  TurnWheel(*tune, -1);
  EXPECT_EQ(Rows(), "");
  TurnWheel(*tune, 1);
  EXPECT_EQ(Rows(), "General|Manual Tune|Enable|Disable\n");
  Activate(table->window());
  Press(Qt::Key_Return);
  EXPECT_EQ(tune->currentText(), "Disable");
  Undo();
  EXPECT_EQ(Rows(), "General|Manual Tune|Enable|Disable\n");
  Happened();
  OpenFile("same.K4X");
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(Result(), none);
}

TEST_F(CompareTest, FollowsTheFileAndTakesNothingThatTheListDoesNotShow) {
  PutBadFiles();
  PutDataFile("same.K4X");
  for (const char* const frequency : {"441.00000", "442.00000"}) {
    Change({{"channels.1.rx_freq", frequency}});
    PutDataFile(frequency);
  }
  const std::string row = "Channels|CH1 Rx Freq|440.00000|", first = row + "441.00000\n", second = row + "442.00000\n";
  const std::string changed = "The file has changed. Nothing was taken. Check the new list first.";
  const std::string lost =
      "The file is missing, damaged or unreadable. The list shows its last content, and no value can "
      "be taken.";
  // the new content of the file, its rows, and the message after Enter
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"442.00000", second, changed}, {"same.K4X", "", changed}, {"short.K4X", first, lost},
      {"zero.K4X", first, lost},      {"none.K4X", first, lost},
  };
  const auto become = [this](const std::string& name) {
    std::filesystem::remove(Path("other.K4X"));
    if (name != "none.K4X") std::filesystem::copy_file(Path(name), Path("other.K4X"));
  };
  become("441.00000");
  ASSERT_NE(Compare("other.K4X"), nullptr);
  const RadioImage before = window->Panel().Collected();
  for (const auto& [now, rows, reported] : cases) {
    SCOPED_TRACE(now);
    Happened();
    become(now);
    Press(Qt::Key_Return);
    EXPECT_EQ(Happened(), Lines{"!|Compare with File|" + reported});
    EXPECT_EQ(window->Panel().Collected(), before);
    become("441.00000");
    Activate(window.get());
    EXPECT_EQ(Rows(), first);
    EXPECT_NE(Result(), lost);
    become(now);
    Activate(table->window());
    EXPECT_EQ(Rows(), rows) << "without a key";
    EXPECT_EQ(Result() == lost, reported == lost);
    become("441.00000");
    Press(Qt::Key_Down);
    EXPECT_EQ(Rows(), first);
  }
  Activate(window.get());
  OpenCell(1, "450.5"); // and save over the compared file
  desktop.paths.emplace_back(Path("other.K4X"));
  QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Rows(), "");
}

TEST_F(CompareTest, ImportsADroppedListOfChannelsAsOneStepOrNotAtAll) {
  const std::string title = "|Import Channels|";
  // name of the file or "" for a text, its content, then the frequency of CH3, the message
  const std::tuple<const char*, std::string, std::string, std::string> cases[] = {
      {"a.CSV", "number,rx_freq,rx_step\n3,445.0025,2.5\n4,446,\n", "445.00250 2.5", "Channels imported: 2"},
      {"", "number;rx_freq\n3;445,5\n", "445.50000 6.25", "Channels imported: 1"},
      {"b.csv", "Location,Name,Frequency,Power\n3,Gate,446,1\n", "446.00000 6.25",
       "i" + title + "The channels were imported, but the radio has no settings for these columns:\n\nName\nPower"},
      {"c.csv", "number,rx_freq,tail_cut\n17,,\n3,445.5,\n4,500,maybe\n", "440.00000 6.25",
       refusedImport + "Line 2: number=17: allowed: 1 to 16\nLine 4: rx_freq=500: allowed: 440 to 469.99375 MHz\n"
                       "Line 4: tail_cut=maybe: allowed: one of OFF"},
      {"large.csv", "number\n" + std::string(std::size_t{1} << 20, '\n'), "440.00000 6.25",
       "!" + title + "The file " + Path("large.csv") + " can't be read."},
      {"none.csv", "", "440.00000 6.25", "!" + title + "The file " + Path("none.csv") + " can't be read."},
  };
  for (const auto& [name, content, expected, reported] : cases) {
    SCOPED_TRACE(name);
    QMimeData data;
    if (*name == '\0') data.setData("text/csv", QByteArray::fromStdString(content));
    if (!content.empty() && *name != '\0') Put(name, content);
    if (*name != '\0') data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Path(name)))});
    Drop(data);
    EXPECT_EQ(Cell(3, 1) + ' ' + Cell(3, 2), expected);
    const Lines shown = Happened();
    EXPECT_EQ(shown.empty() ? Status(1) : shown.front(), reported);
    if (expected == "440.00000 6.25") continue;
    EXPECT_TRUE(window->State().ModifiedFlag);
    Undo();
    EXPECT_EQ(Status(1), "Undone: Import Channels");
    EXPECT_EQ(Cell(3, 1) + ' ' + Cell(3, 2), "440.00000 6.25");
  }
  OpenCell(1, "4.6.0"); // is refused before the import
  QMimeData data;
  data.setData("text/csv", "number,rx_freq\n3,446\n");
  Drop(data);
  EXPECT_EQ(Happened(), Lines{"!|Error|Frequency Invalid!"});
  EXPECT_EQ(Cell(1, 1) + ' ' + Cell(3, 1), "440.00000 446.00000");
}

TEST_F(CompareTest, ComparesWithTheRadioOnTheCableAndTakesItsValues) {
  PutInRadio();
  const RadioImage before = window->Panel().Collected();
  Choose("mnuFileCompareRadio");
  EXPECT_EQ(window->Panel().Collected(), before);
  auto* const opened = window->findChild<QDialog*>("frmCompare");
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(opened->windowTitle(), "Compare with COM3");
  table = opened->findChild<QTableView*>("tblDifferences");
  Activate(opened);
  EXPECT_EQ(Rows(), "Channels|CH5 In Use|no|yes\n");
  Press(Qt::Key_Return);
  EXPECT_EQ(Rows(), "");
  EXPECT_FALSE(window->Panel().Shown().channels[4].noCh);
  EXPECT_EQ(Happened(), Lines());
}

} // namespace
} // namespace mr4500x
