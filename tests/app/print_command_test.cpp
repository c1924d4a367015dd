// The print command: frmPrint and what its answers lead to.
#include "modal_dialog.h"
#include "program_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QProcess>
#include <QPushButton>

namespace mr4500x {
namespace {

class PrintCommandTest : public ProgramTest {
protected:
  // Presses the named controls of frmPrint one after the other; the last one closes it.
  void Print(const std::string& source, const Lines& presses) {
    WhenDialogOpens([this, presses](QWidget* dialog) {
      ticks = dialog->windowTitle().toStdString() + ":";
      for (const std::string& name : presses) {
        dialog->findChild<QAbstractButton*>(QString::fromStdString(name))->click();
        ticks += ' ';
        for (const QCheckBox* box : dialog->findChildren<QCheckBox*>())
          ticks += box->isChecked() ? 'x' : '-';
      }
    });
    if (source.rfind("mnu", 0) == 0)
      Choose(source);
    else
      Button(source)->click();
  }
  std::string Printed() {
    QProcess tool;
    tool.start("pdftotext", {"-layout", QString::fromStdString(desk.pdfFile), "-"});
    EXPECT_TRUE(tool.waitForFinished());
    return tool.readAllStandardOutput().toStdString();
  }

  std::string ticks;
};

TEST_F(PrintCommandTest, TheDialogAsksForTheReports) {
  desk.pdfFile = Path("out.pdf");
  Print("mnuFilePrint", {"chkPrintOutput(1)", "cmdSelAll", "cmdClrAll", "cmdOK", "cmdPrintSet", "cmdCancel"});
  EXPECT_EQ(ticks, "Print Output: -x- xxx --- --- --- ---");
  EXPECT_EQ(Happened(),
            (Lines{"i|MR4500X Programming Software|Please select items you want to print.", "dialog Printer Setup"}));
  EXPECT_FALSE(QFile::exists(QString::fromStdString(desk.pdfFile)));
  Print("Print", {"chkPrintOutput(1)", "cmdOK"});
  EXPECT_EQ(Happened(), Lines{});
  EXPECT_TRUE(QFile::exists(QString::fromStdString(desk.pdfFile)));
}

// What the controls show is printed, collected or not.
TEST_F(PrintCommandTest, PrintsWhatTheWindowShows) {
  desk.pdfFile = Path("out.pdf");
  window->findChild<QComboBox*>("cboRadio(5)")->setCurrentIndex(2);
  const RadioImage before = window->Image();
  Print("mnuFilePrint", {"chkPrintOutput(0)", "chkPrintOutput(2)", "cmdOK"});
  const std::string text = Printed();
  for (const char* const expected :
       {"Squelch Level: 3", "440.00000", "Frequency Band: 440MHz~470MHz", "No Embedded Information."}) {
    std::string words = expected;
    std::string found = text;
    std::erase(words, ' ');
    std::erase(found, ' ');
    EXPECT_NE(found.find(words), std::string::npos) << expected << " in " << text;
  }
  EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 2);
  EXPECT_EQ(window->Image(), before);
}

TEST_F(PrintCommandTest, AFailedJobIsTold) {
  for (const auto& [file, message] : {std::pair<std::string, std::string>{"", "There is no printer."},
                                      {Path("nowhere/out.pdf"), "The PDF file " + Path("nowhere/out.pdf")}}) {
    desk.pdfFile = file;
    Print("mnuFilePrint", {"cmdSelAll", "cmdOK"});
    const Lines happened = Happened();
    ASSERT_EQ(happened.size(), 1U);
    EXPECT_EQ(happened[0].rfind("!|MR4500X Programming Software|" + message, 0), 0U) << happened[0];
  }
}

} // namespace
} // namespace mr4500x
