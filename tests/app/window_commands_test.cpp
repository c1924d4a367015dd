// The print command: frmPrint and what its answers lead to.
#include "program_fixture.h"

namespace mr4500x {
namespace {

class PrintCommandTest : public ProgramTest {
protected:
  // Presses the named controls of frmPrint one after the other; the last one closes it.
  void Print(const Lines& presses) {
    ticks.clear();
    WhenDialogOpens([this, presses](QWidget* dialog) {
      for (const std::string& name : presses) {
        dialog->findChild<QAbstractButton*>(QString::fromStdString(name))->click();
        for (const QCheckBox* box : dialog->findChildren<QCheckBox*>())
          ticks += box->isChecked() ? 'x' : '-';
        ticks += ' ';
      }
    });
    Button("Print")->click();
  }
  std::string ticks;
};

TEST_F(PrintCommandTest, TheDialogAsksForTheReports) {
  desk.pdfFile = Path("out.pdf");
  Print({"chkPrintOutput(1)", "cmdSelAll", "cmdClrAll", "cmdOK", "cmdPrintSet", "cmdCancel"});
  EXPECT_EQ(ticks, "-x- xxx --- --- --- --- ");
  EXPECT_EQ(Happened(),
            (Lines{"i|MR4500X Programming Software|Please select items you want to print.", "dialog Printer Setup"}));
  EXPECT_FALSE(std::filesystem::exists(desk.pdfFile));
}

TEST_F(PrintCommandTest, APdfFileHasANameForEachJob) {
  desk.pdfFile = Path("proposed.pdf");
  desk.paths = {std::nullopt, Path("out.pdf")};
  for (const bool cancelled : {true, false}) {
    Print({"chkPrintOutput(1)", "cmdOK"});
    EXPECT_EQ(Happened(), Lines{"dialog Print to PDF"});
    EXPECT_EQ(desk.lastQuestion.proposedName, Path("proposed.pdf"));
    EXPECT_EQ(Names().contains("out.pdf"), !cancelled);
    EXPECT_EQ(Status(1), cancelled ? std::string(ProgramTitle) : "Printed to " + Path("out.pdf"));
  }
}

TEST_F(PrintCommandTest, PrintsWhatTheWindowShowsCollectedOrNot) {
  desk.pdfFile = Path("old.pdf");
  desk.paths = {Path("out.pdf")};
  window->findChild<QComboBox*>("cboRadio(5)")->setCurrentIndex(2);
  const RadioImage before = window->Image();
  Print({"chkPrintOutput(0)", "chkPrintOutput(2)", "cmdOK"});
  QProcess tool;
  tool.start("pdftotext", {"-layout", QString::fromStdString(desk.pdfFile), "-"});
  EXPECT_TRUE(tool.waitForFinished());
  const QString text = QString::fromUtf8(tool.readAllStandardOutput()).remove(' ');
  for (const char* const expected : {"SquelchLevel:3", "440.00000", "NoEmbeddedInformation."})
    EXPECT_TRUE(text.contains(expected)) << expected << " in " << text.toStdString();
  EXPECT_EQ(text.count('\f'), 2);
  EXPECT_EQ(window->Image(), before);
}

TEST_F(PrintCommandTest, AFailedJobIsTold) {
  desk.pdfFile = "";
  Print({"cmdSelAll", "cmdOK"});
  EXPECT_EQ(Happened(), Lines{"!|MR4500X Programming Software|There is no printer. \"Printer...\" offers to print to "
                              "a PDF file."});
}

} // namespace
} // namespace mr4500x
