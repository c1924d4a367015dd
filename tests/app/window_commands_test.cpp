// The commands that stay within the window: printing, the embedded information and the help.
#include "accessible_names.h"
#include "differences.h"
#include "embedded_info.h"
#include "program_fixture.h"
#include "setting_help.h"
#include "settings_frame.h"

namespace mr4500x {
namespace {

class WindowCommandsTest : public ProgramTest {
protected:
  // Prints to a PDF file with the named controls of frmPrint pressed one after the other; the last one closes it.
  void Print(const Lines& presses) {
    WhenDialogOpens([presses](QWidget* dialog) {
      for (const std::string& name : presses)
        dialog->findChild<QAbstractButton*>(QString::fromStdString(name))->click();
    });
    Button("Print")->click();
  }
};

TEST_F(WindowCommandsTest, PrintPrintsNothingThatWasNotChosen) {
  desktop.pdfFile = Path("out.pdf");
  Print({"chkPrintOutput(1)", "cmdSelAll", "cmdClrAll", "cmdOK", "cmdPrintSet", "cmdCancel"});
  EXPECT_EQ(Happened(),
            (Lines{"i|MR4500X Programming Software|Please select items you want to print.", "dialog Printer Setup"}));
  EXPECT_EQ(Names(), std::set<std::string>{"MR4500X.ini"});
}

TEST_F(WindowCommandsTest, PrintKeepsTheTicksUntilThereIsAName) {
  desktop.pdfFile = Path("last.pdf");
  WhenDialogOpens([](QWidget* first) {
    first->findChild<QAbstractButton*>("chkPrintOutput(1)")->click();
    first->findChild<QAbstractButton*>("cmdOK")->click();
    WhenDialogOpens([](QWidget* second) {
      for (const int box : {0, 1, 2})
        EXPECT_EQ(second->findChild<QCheckBox*>(QStringLiteral("chkPrintOutput(%1)").arg(box))->isChecked(), box == 1);
      second->findChild<QAbstractButton*>("cmdCancel")->click();
    });
  });
  Button("Print")->click();
  EXPECT_EQ(Happened(), Lines{"dialog Print to PDF"});
  EXPECT_EQ(desktop.lastQuestion.proposedName, Path("last.pdf"));
}

TEST_F(WindowCommandsTest, PrintTakesWhatTheWindowShowsCollectedOrNot) {
  PutDataFile("Taxi 446.1.K4X");
  OpenFile("Taxi 446.1.K4X");
  desktop.paths = {Path("out.pdf")};
  window->findChild<QComboBox*>("cboRadio(5)")->setCurrentIndex(2);
  const RadioImage before = window->Image();
  Print({"chkPrintOutput(0)", "chkPrintOutput(2)", "cmdOK"});
  EXPECT_EQ(desktop.lastQuestion.proposedName, "Taxi 446.1.pdf");
  EXPECT_EQ(Status(1), "Printed to " + Path("out.pdf"));
  EXPECT_EQ(std::system(("pdftotext -layout " + Path("out.pdf")).c_str()), 0);
  const QString text = QString::fromStdString(Content("out.txt")).remove(' ');
  for (const char* const expected : {"SquelchLevel:3", "440.00000", "NoEmbeddedInformation.", "4Nov200409:05:07"})
    EXPECT_TRUE(text.contains(expected)) << expected << " in " << text.toStdString();
  EXPECT_EQ(text.count('\f'), 2);
  EXPECT_EQ(window->Image(), before);
}

TEST_F(WindowCommandsTest, EmbeddedInformationChangesAloneAndOnlyIfConfirmed) {
  const LineBytes inRadio = {'a', 0, 'b', 0, 0, 0, 'c', 0}; // the text ends at the zero
  std::fill_n(&radio.memory[0x210], EmbeddedInfoCapacity, std::uint8_t{0});
  std::copy(inRadio.begin(), inRadio.end(), &radio.memory[0x210]);
  Choose("mnuEmbedRead");
  RadioImage expected = window->Image();
  for (const std::string button : {"cmdCancel", "cmdOK"}) {
    WhenDialogOpens([&](QWidget* dialog) {
      auto* const box = dialog->findChild<QPlainTextEdit*>("rtxtbEmbed");
      QTest::keyClicks(box, "x\r");
      EXPECT_EQ(box->font().family() == "Courier", button == "cmdOK") << "the font is kept in any case";
      dialog->findChild<QPushButton*>("cmdFont")->click();
      EXPECT_EQ(box->font().family(), "Courier");
      dialog->findChild<QPushButton*>(QString::fromStdString(button))->click();
    });
    Choose("mnuEmbedInfo");
    EXPECT_TRUE(button != "cmdOK" || StoreEmbeddedText(expected.EmbeddedInfoBlock, u"x\r\nab"));
    EXPECT_EQ(window->Image(), expected) << button;
  }
}

TEST_F(WindowCommandsTest, HelpOpensTheManualAndAboutTheMakersPage) {
  WhenDialogOpens([](QWidget* about) {
    auto* const link = about->findChild<QLabel*>("lblLink");
    QTest::mouseClick(link, Qt::LeftButton, {}, QPoint(link->fontMetrics().averageCharWidth() * 3, link->height() / 2));
    EXPECT_TRUE(link->focusPolicy() & Qt::TabFocus);
    about->findChild<QPushButton*>("cmdClose")->click();
  });
  for (const char* const command : {"mnuHelpContents", "mnuHelpIndex", "mnuHelpAbout"})
    Choose(command);
  EXPECT_FALSE(Item("mnuHelpPractise")->isVisible()) << "without the simulator";
  EXPECT_EQ(Happened(), (Lines{"help contents", "help index", "link https://www.calvorne-vtr.example/"}));
  Choose("mnuHelpPractise"); // fails
  EXPECT_FALSE(Item("mnuHelpPractise")->isChecked());
}

TEST_F(WindowCommandsTest, CommandsStoreAnOpenCell) {
  for (const char* const command :
       {"mnuFileOpen", "mnuFileSave", "mnuFileSaveAs", "mnuFileImport", "mnuFileExport", "mnuFileSample",
        "mnuFileCompareRadio", "mnuFileRecover", "mnuChannelsCompare", "mnuEmbedRead", "mnuEmbedWrite",
        "mnuHelpContents", "mnuHelpIndex", "mnuProgramRead"}) {
    QTest::keyClick(window->findChild<QTableView*>("gridChannel"), Qt::Key_Space);
    EXPECT_TRUE(window->findChild<QLineEdit*>("txtChFreq")->isVisible()) << command;
    Choose(command);
    EXPECT_TRUE(window->findChild<QLineEdit*>("txtChFreq")->isHidden()) << command;
  }
}

TEST_F(WindowCommandsTest, HasHelpAtEachSettingWithItsFirstValue) {
  QStringList tips;
  for (const QWidget* const control : window->findChildren<QWidget*>())
    if (control->toolTip() == control->whatsThis()) tips += control->whatsThis();
  for (const QTableWidget* const table : window->findChildren<QTableWidget*>())
    for (int column = 0; column < table->columnCount(); ++column)
      if (const auto* const heading = table->horizontalHeaderItem(column); heading != nullptr)
        if (heading->toolTip() == heading->whatsThis()) tips += heading->whatsThis();
  const Configuration first = window->Panel().Shown();
  for (const Field& field : Fields()) {
    const std::string name = SettingName(field.place).toStdString();
    const auto help = SettingHelps().find(SettingName(field.place));
    ASSERT_NE(help, SettingHelps().end()) << name << " has no row in the manual's settings.html";
    const QString lines = help->second.lines, value = QString::fromStdString(ShownTextOf(first, {&field, 1}));
    EXPECT_LE(lines.count('\n'), 2) << name;
    EXPECT_TRUE(tips.contains(lines)) << name << " shows no help";
    const bool isOfChannels = field.place == FieldPlace(Box::InUse) || field.place == FieldPlace(Box::TxAllowed);
    if (isOfChannels) { // ticks for a no
      EXPECT_EQ(tips.count(lines), 1 + ChannelCount) << name << ": the heading and every box";
      continue;
    }
    EXPECT_TRUE(lines.contains("Default: " + value)) << name << ": " << lines.toStdString();
  }
}

TEST_F(WindowCommandsTest, EveryControlThatCanHaveTheFocusHasANameForScreenReaders) {
  SomePorts ports;
  serialPort = &ports;
  Start();
  EXPECT_EQ(NamelessControls(window.get()), "");
  PutInRadio();
  PutDataFile("a.K4X");
  std::filesystem::create_directory(Path("kept"));
  Put("kept/2004-11-03_09-05-07_0.K4X", "");
  auto& grid = *window->findChild<QTableWidget*>("gridChannel");
  const auto open = [&](int column) {
    grid.setCurrentCell(0, column);
    QTest::keyClick(&grid, Qt::Key_Space);
  };
  desktop.paths = {Path("a.K4X")};
  const std::pair<const char*, std::function<void()>> dialogs[] = {
      {"frmTwoFive", [&] { open(3); }},
      {"frmGroup", [&] { open(13); }},
      {"frmEmbed", [&] { Choose("mnuEmbedInfo"); }},
      {"frmPort", [&] { Choose("mnuCommPortPort"); }},
      {"frmPrint", [&] { Choose("mnuFilePrint"); }},
      {"frmRecover", [&] { Choose("mnuFileRecover"); }},
      {"frmAbout", [&] { Choose("mnuHelpAbout"); }},
  };
  for (const auto& [name, show] : dialogs) {
    std::string seen;
    WhenDialogOpens([&](QWidget* dialog) {
      seen = dialog->objectName().toStdString() + '\n' + NamelessControls(dialog);
      qobject_cast<QDialog*>(dialog)->reject();
    });
    show();
    EXPECT_EQ(seen, name + std::string("\n"));
  }
  Choose("mnuChannelsCompare");
  EXPECT_EQ(NamelessControls(window->findChild<QDialog*>("frmCompare")), "");
}

TEST_F(WindowCommandsTest, F1OpensThePageAboutTheControlThatHasTheFocus) {
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  auto& grid = *window->findChild<QTableWidget*>("gridChannel");
  const auto press = [](QWidget* on) {
    on->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([on] { return on->hasFocus(); }));
    QTest::keyClick(on, Qt::Key_F1);
  };
  grid.setCurrentCell(0, 2);
  press(&grid);
  grid.setCurrentCell(0, 0);
  QTest::keyClick(&grid, Qt::Key_Space);
  press(window->findChild<QLineEdit*>("txtChFreq")); // the open cell
  press(window->findChild<QCheckBox*>("chkCH(3)"));
  Choose("mnuOptionFunction");
  press(window->findChild<QComboBox*>("cboScan(3)"));
  WhenDialogOpens([&](QWidget* dialog) {
    EXPECT_NE(dialog->findChild<QWidget*>("cmdPrintSet")->toolTip(), "");
    dialog->activateWindow();
    press(dialog->findChild<QWidget*>("cmdPrintSet"));
    dialog->findChild<QPushButton*>("cmdCancel")->click();
  });
  Button("Print")->click();
  EXPECT_EQ(Happened(), (Lines{"help tones.html", "help frequencies.html", "help channels.html#noch", "help scan.html",
                               "help printing.html#pdf"}));
}

} // namespace
} // namespace mr4500x
