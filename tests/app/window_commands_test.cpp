// The commands that stay within the window: printing, the embedded information and the help.
#include "embedded_info.h"
#include "program_fixture.h"

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

TEST_F(WindowCommandsTest, PrintOnlyPrintsWhatWasChosen) {
  // name, pressed controls, the PDF file that is printed to, effect
  const std::tuple<const char*, Lines, std::string, Lines> cases[] = {
      {"nothing",
       {"chkPrintOutput(1)", "cmdSelAll", "cmdClrAll", "cmdOK", "cmdPrintSet", "cmdCancel"},
       "out.pdf",
       {"i|MR4500X Programming Software|Please select items you want to print.", "dialog Printer Setup"}},
      {"no name", {"chkPrintOutput(1)", "cmdOK"}, "out.pdf", {"dialog Print to PDF"}},
      {"no printer",
       {"cmdSelAll", "cmdOK"},
       "",
       {"!|MR4500X Programming Software|There is no printer. \"Printer...\" offers to print to a PDF file."}},
  };
  for (const auto& [name, presses, pdfFile, effect] : cases) {
    SCOPED_TRACE(name);
    desk.pdfFile = pdfFile.empty() ? "" : Path(pdfFile);
    Print(presses);
    EXPECT_EQ(Happened(), effect);
    EXPECT_EQ(Names(), std::set<std::string>{"MR4500X.ini"});
    EXPECT_EQ(Status(1), ProgramTitle);
  }
}

TEST_F(WindowCommandsTest, PrintTakesWhatTheWindowShowsCollectedOrNot) {
  desk.pdfFile = Path("proposed.pdf");
  desk.paths = {Path("out.pdf")};
  window->findChild<QComboBox*>("cboRadio(5)")->setCurrentIndex(2);
  const RadioImage before = window->Image();
  Print({"chkPrintOutput(0)", "chkPrintOutput(2)", "cmdOK"});
  EXPECT_EQ(desk.lastQuestion.proposedName, Path("proposed.pdf"));
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
      QTest::keyClicks(dialog->findChild<QPlainTextEdit*>("rtxtbEmbed"), "x\r");
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
    about->findChild<QPushButton*>("cmdClose")->click();
  });
  for (const char* const command : {"mnuHelpContents", "mnuHelpIndex", "mnuHelpAbout"})
    Choose(command);
  EXPECT_EQ(Happened(), (Lines{"help contents", "help index", "link https://www.calvorne-vtr.example/"}));
}

} // namespace
} // namespace mr4500x
