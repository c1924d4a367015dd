// The commands that stay within the window: printing, the embedded information and the help.
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

TEST_F(WindowCommandsTest, PrintTakesWhatTheWindowShowsCollectedOrNot) {
  PutDataFile("Taxi 446.1.K4X");
  OpenFile("Taxi 446.1.K4X");
  desktop.paths = {Path("out.pdf")};
  window->findChild<QComboBox*>("cboRadio(5)")->setCurrentIndex(2);
  const RadioImage before = window->Image();
  Print({"chkPrintOutput(0)", "chkPrintOutput(2)", "cmdOK"});
  EXPECT_EQ(desktop.lastQuestion.proposedName, "Taxi 446.1.pdf");
  EXPECT_EQ(Status(1), "Printed to " + Path("out.pdf"));
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
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

TEST_F(WindowCommandsTest, CommandsStoreAnOpenCell) {
  PutDataFile("a.K4X");
  OpenFile("a.K4X");
  for (const char* const command :
       {"mnuRecent(1)", "mnuFileOpen", "mnuFileSave", "mnuFileSaveAs", "mnuFileImport", "mnuFileExport",
        "mnuFileSample", "mnuFileCompareRadio", "mnuFileRecover", "mnuChannelsCompare", "mnuEmbedRead", "mnuEmbedWrite",
        "mnuHelpContents", "mnuHelpIndex", "mnuProgramRead"}) {
    QTest::keyClick(window->findChild<QTableView*>("gridChannel"), Qt::Key_Space);
    EXPECT_TRUE(window->findChild<QLineEdit*>("txtChFreq")->isVisible()) << command;
    Choose(command);
    EXPECT_TRUE(window->findChild<QLineEdit*>("txtChFreq")->isHidden()) << command;
  }
}

TEST_F(WindowCommandsTest, HasHelpAtEachSettingWithItsFirstValue) {
  const Configuration first = window->Panel().Shown();
  for (const Field& field : Fields()) {
    const std::string name = SettingName(field.place).toStdString();
    const auto help = SettingHelps().find(SettingName(field.place));
    ASSERT_NE(help, SettingHelps().end()) << name << " has no row in the manual's settings.html";
    const QString lines = help->second.lines, value = QString::fromStdString(ShownTextOf(first, {&field, 1}));
    const bool isOfChannels = field.place == FieldPlace(Box::InUse) || field.place == FieldPlace(Box::TxAllowed);
    EXPECT_TRUE(isOfChannels || lines.contains("Default: " + value)) << name << ": " << lines.toStdString();
  }
}

} // namespace
} // namespace mr4500x
