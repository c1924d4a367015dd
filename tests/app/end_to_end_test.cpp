// The typical job with the whole program: the real window with mouse and keyboard, its dialogs and settings file, and
// the simulated radio as a process behind a serial device.
#include "configuration.h"
#include "files_fixture.h"
#include "program.h"
#include "program_title.h"
#include "radio_memory.h"
#include "rows.h"

#include <QTest>
#include <QtWidgets>

#include <csignal>

namespace mr4500x {
namespace {

using Lines = std::vector<std::string>;

class EndToEndTest : public FilesTest {
protected:
  EndToEndTest() {
    user.callOnTimeout([this] { AnswerDialog(); });
    user.start(5);
    radio.start(LR7200_SIMULATOR, {"--memory", QString::fromStdString(Path("memory"))});
    while (!radio.canReadLine() && radio.waitForReadyRead()) {
    }
    std::ofstream((QCoreApplication::applicationDirPath() + "/MR4500X.ini").toStdString())
        << "[Comm Port]\nTrace=" << Path("trace")
        << "\n[Port Devices]\nCOM16=/dev/null\nCOM1=" << radio.readLine().toStdString();
    qputenv("PATH", QFileInfo(LR7200_SIMULATOR).path().toUtf8() + ':' + qgetenv("PATH"));
    program = std::make_unique<Program>();
    window = &program->Window();
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
  }
  void AnswerDialog() {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr) return;
    reported.push_back(dialog->windowTitle().toStdString());
    if (qobject_cast<QFileDialog*>(dialog) != nullptr) {
      EXPECT_EQ(qobject_cast<QFileDialog*>(dialog)->directory().path(), QCoreApplication::applicationDirPath());
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText(file);
      QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    } else {
      QTest::mouseClick(dialog->findChild<QPushButton*>("cmdOk"), Qt::LeftButton);
    }
  }
  void Press(const QKeySequence& keys, const std::string& title) {
    QTest::keySequence(window, keys);
    window->activateWindow(); // like a window manager after a box was closed
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_EQ(window->windowTitle().toStdString(), title) << keys.toString().toStdString();
  }
  // Again if the radio's answer was late, as it can be on a busy machine.
  void DoTransfer(const QKeySequence& keys, const std::string& title) {
    const Lines before = reported;
    for (int tries = 0; tries < 3 && window->windowTitle().toStdString() != title; ++tries) {
      reported = before;
      QTest::keySequence(window, keys);
      window->activateWindow();
      ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    EXPECT_EQ(window->windowTitle().toStdString(), title) << keys.toString().toStdString();
  }

  QTimer user;
  Lines reported; // the titles of the dialogs
  QString file = QString::fromStdString(Path("radio.K4X"));
  QProcess radio;
  std::unique_ptr<Program> program;
  FrmMain* window = nullptr;
};

TEST_F(EndToEndTest, ReadsEditsSavesOpensAndWrites) {
  auto& grid = *window->findChild<QTableWidget*>("gridChannel");
  const QTableWidgetItem& frequency = *grid.item(1, static_cast<int>(GridColumn::RxFreq) - 1); // channel 2
  auto& noCh = *window->findChild<QCheckBox*>("chkCH(8)");                                     // channel 9
  const auto cells = [&] { return Lines{frequency.text().toStdString(), noCh.isChecked() ? "No CH" : "in use"}; };
  DoTransfer(Qt::CTRL | Qt::Key_R, TitleOf(RadioOrigin{Transfer::Read}));
  EXPECT_EQ(cells(), (Lines{"441.50000", "No CH"}));

  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualItemRect(&frequency).center());
  ASSERT_EQ(QApplication::focusWidget(), window->findChild<QLineEdit*>("txtChFreq"));
  QTest::keyClicks(QApplication::focusWidget(), "442.0137"); // over the selected text; rounded to the step
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);
  QTest::mouseClick(&noCh, Qt::LeftButton);
  const Lines edited = {"442.01250", "in use"};
  ASSERT_EQ(cells(), edited);

  const std::string fileTitle = TitleOf(FileOrigin{file.toStdString()});
  Press(Qt::CTRL | Qt::Key_S, fileTitle);
  QTest::keyClick(window, Qt::Key_F, Qt::AltModifier); // the File menu
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_C); // Close, without a question because all is saved
  EXPECT_NE(cells()[0], edited[0]);
  Press(Qt::CTRL | Qt::Key_O, fileTitle);
  EXPECT_EQ(cells(), edited);
  DoTransfer(Qt::CTRL | Qt::Key_W, TitleOf(RadioOrigin{Transfer::Write}));
  EXPECT_EQ(reported, (Lines{"Read Complete", "Save As", "Open", "Write Complete"}));

  radio.terminate();
  ASSERT_TRUE(radio.waitForFinished(5000));
  const std::string trace = Content("trace");
  EXPECT_GE(QByteArray::fromStdString(trace).count(" computer 57 0"), 103 + 66);
  const std::string written = Content("memory");
  const RadioMemory factory = FactoryMemory();
  std::string expected(factory.begin(), factory.end());
  expected.replace(0x011, 3, "\xA5\xB2\x02");                   // frequency
  expected.replace(0x080, 1, "\x81").replace(0x10C, 1, "\x0A"); // in use, and the number of channels in use
  ASSERT_EQ(written.size(), expected.size());
  expected.replace(0x200, 14, "20" + written.substr(0x202, 12)); // the write stamp
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_EQ(written[i], expected[i]) << std::hex << i;
}

TEST_F(EndToEndTest, PractisesWithARadioOfItsOwn) {
  const auto status = [&](int panel) {
    return window->findChild<QLabel*>(QStringLiteral("stbMain.Panels(%1)").arg(panel))->text().toStdString();
  };
  auto& item = *window->findChild<QAction*>("mnuHelpPractise");
  EXPECT_TRUE(item.isVisible());
  item.trigger();
  ASSERT_TRUE(item.isChecked());
  EXPECT_EQ(status(1) + '|' + status(2), "Practising with a simulated radio on COM15|COM 15");
  DoTransfer(Qt::Key_F3, TitleOf(RadioOrigin{Transfer::ReadInfo}));
  EXPECT_EQ(reported, Lines{"Read Information Completely"});
  EXPECT_EQ(std::pair(window->State().CommPortNumber, window->State().PortToKeep()), std::pair(15, 1));
  item.trigger();
  EXPECT_FALSE(item.isChecked());
  EXPECT_EQ(status(1) + '|' + status(2), std::string(ProgramTitle) + "|COM 1");
  EXPECT_EQ(window->State().practicePort, 0) << "the port is another's again";
}

// Which needs a radio, and answers all dialogs.
TEST_F(EndToEndTest, TheDemonstrationEndsWithAWrittenRadio) {
  std::filesystem::copy(MR4500X_DEMO, Path("demo"));
  std::filesystem::copy((QCoreApplication::applicationDirPath() + "/MR4500X.ini").toStdString(), Path("MR4500X.ini"));
  int end = 1;
  for (int tries = 0; tries < 3 && end != 0; ++tries) // a radio may answer late on a busy machine
    end = std::system(("cd " + Path("") + " && ./demo pictures >said").c_str());
  EXPECT_EQ(end, 0);
  // What it prints, the pictures that it takes, and that all but the one of the saved data are different.
  EXPECT_EQ(std::system(("cd " + Path("pictures") +
                         " && { sed \"s:$PWD:FOLDER:\" ../said; ls; sha1sum [!0]*.png 0[!8]*.png | sort | " +
                         "uniq -D -w 40; } | diff " DATA "demo.txt -")
                            .c_str()),
            0);
  EXPECT_LT(QImage(QString::fromStdString(Path("pictures/02-progress.png"))).height(), 200) << "of another window";
}

using ProgramTest = FilesTest; // its folder is the one of a program that stores its settings beside itself

TEST_F(ProgramTest, PrintsItsUsage) {
  for (const Row& row : RowsOf(DATA "program_lines.txt", "(\\d) (.*) -> (.*)")) {
    const std::string run = "program=" MR4500X_PROGRAM "; demo=" MR4500X_DEMO "; ( " + row[2] + " ) >" + Path("said");
    EXPECT_EQ(std::system(run.c_str()), std::stoi(row[1]) << 8) << row[0];
    EXPECT_TRUE(Content("said").ends_with(Unescaped(row[3]))) << row[0] << '\n' << Content("said");
  }
}

TEST_F(ProgramTest, StoresItsSettingsWhenASignalEndsIt) {
  Put("MR4500X.ini", "[Comm Port]\nCommon Port=5\n");
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* const name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME"})
    environment.insert(name, QString::fromStdString(Path("home")));
  for (const auto& [path, file, stored] : {std::tuple(MR4500X_PROGRAM, "MR4500X.ini", "Common Port=5"),
                                           {MR4500X_FLEET, "home/MR4500X/fleet.ini", "Sound=true"}}) {
    SCOPED_TRACE(path);
    const std::string own = Path(std::filesystem::path(path).filename());
    std::filesystem::copy(path, own);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QString::fromStdString(own), {});
    ASSERT_TRUE(program.waitForStarted());
    const auto hears = [&] { // SIGTERM, bit 14 of the signals that it catches
      std::ifstream status("/proc/" + std::to_string(program.processId()) + "/status");
      const std::string text{std::istreambuf_iterator<char>(status), {}};
      const std::size_t at = text.find("SigCgt:");
      return at < text.size() && (std::stoull(text.substr(at + 7), nullptr, 16) & 1U << 14) != 0;
    };
    ASSERT_TRUE(QTest::qWaitFor(hears, 20'000));
    std::filesystem::remove(Path(file));
    program.terminate();
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 128 + SIGTERM);
    EXPECT_NE(Content(file).find(stored), std::string::npos) << Content(file);
  }
}

} // namespace
} // namespace mr4500x
