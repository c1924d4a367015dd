// The typical job with the program as it runs: its window under mouse and keys, its own adapters, a file on the disk,
// and the simulated radio as a process behind a serial device.
#include "configuration.h"
#include "program.h"
#include "program_title.h"
#include "radio_memory.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using Lines = std::vector<std::string>;

constexpr LocalTime Now = {2024, 2, 29, 23, 4, 56};

// Answers every file dialog with the same path.
struct OnePath final : FileDialogs {
  std::string path;
  Lines asked;
  std::optional<std::string> AskOpen(const FileQuestion& question) override { return AskSave(question); }
  std::optional<std::string> AskSave(const FileQuestion& question) override {
    asked.push_back(question.title);
    return path;
  }
};

struct NoPrinters final : Printers {
  std::unique_ptr<Printer> CurrentPrinter() override { return nullptr; }
  void SetUpPrinter(const std::string& /*title*/) override {}
};

class EndToEndTest : public testing::Test {
protected:
  EndToEndTest() {
    user.callOnTimeout([this] { ConfirmMessage(); });
    user.start(5);
    radio.start(LR7200_SIMULATOR, {"--memory", folder.filePath("memory")});
    while (!radio.canReadLine() && radio.waitForReadyRead()) {
    }
    device = radio.readLine().trimmed().toStdString();
    dialogs.path = folder.filePath("radio.K4X").toStdString();
  }
  void ConfirmMessage() {
    const auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    confirmed.push_back(box->windowTitle().toStdString());
    QTest::mouseClick(box->findChild<QPushButton*>("cmdOk"), Qt::LeftButton);
  }

  void Press(const QKeySequence& keys) {
    QTest::keySequence(&window, keys);
    window.activateWindow(); // as a window manager does when a box has gone
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  Lines EditedCells() { return {frequency.text().toStdString(), noCh.isChecked() ? "No CH" : "in use"}; }
  std::string Title() { return window.windowTitle().toStdString(); }

  QTimer user;
  Lines confirmed;
  QTemporaryDir folder;
  QProcess radio;
  std::string device;
  PosixFileSystem files;
  UserInput input;
  EventClock clock{input};
  QtSerialPort port{[this](int number) { return number == 1 ? device : std::string(); }};
  QtMessageView messages{input};
  QtProgressView progress{std::string(ProgramTitle)};
  OnePath dialogs;
  QtFontDialog fonts;
  QtHelpViewer help{messages, folder.filePath("none.hlp").toStdString()};
  NoPrinters printers;
  FrmMain window{{messages, progress, dialogs, fonts, help, printers, files, port, clock, input,
                  folder.filePath("MR4500X.ini").toStdString(), folder.path().toStdString(), [] { return Now; },
                  [this](int) { return device; }, [](const WindowGeometry&) {}, [](const std::string&) {}}};
  QTableWidget& grid = *window.findChild<QTableWidget*>("gridChannel");
  QTableWidgetItem& frequency = *grid.item(1, static_cast<int>(GridColumn::RxFreq) - 1); // of channel 2
  QCheckBox& noCh = *window.findChild<QCheckBox*>("chkCH(8)");                           // of channel 9
};

TEST_F(EndToEndTest, ReadsEditsSavesOpensAndWrites) {
  ASSERT_FALSE(device.empty());
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_EQ(Title(), ProgramTitle);
  Press(Qt::CTRL | Qt::Key_R);
  ASSERT_EQ(Title(), TitleOf(RadioOrigin{Transfer::Read}));
  EXPECT_EQ(EditedCells(), (Lines{"441.50000", "No CH"}));

  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualItemRect(&frequency).center());
  ASSERT_EQ(QApplication::focusWidget(), window.findChild<QLineEdit*>("txtChFreq"));
  QTest::keyClicks(QApplication::focusWidget(), "442.0137"); // over the selected text; rounded to the step
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);
  QTest::mouseClick(&noCh, Qt::LeftButton);
  const Lines edited = {"442.01250", "in use"};
  ASSERT_EQ(EditedCells(), edited);

  Press(Qt::CTRL | Qt::Key_S);
  EXPECT_EQ(Title(), TitleOf(FileOrigin{dialogs.path}));
  QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier); // the File menu
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_C); // Close; all is saved: no question
  EXPECT_EQ(Title(), ProgramTitle);
  EXPECT_NE(EditedCells()[0], edited[0]);
  Press(Qt::CTRL | Qt::Key_O);
  EXPECT_EQ(Title(), TitleOf(FileOrigin{dialogs.path}));
  EXPECT_EQ(EditedCells(), edited);
  EXPECT_EQ(dialogs.asked, (Lines{"Save As", "Open"}));
  Press(Qt::CTRL | Qt::Key_W);
  EXPECT_EQ(Title(), TitleOf(RadioOrigin{Transfer::Write}));

  Press(Qt::Key_F3);
  EXPECT_EQ(Title(), TitleOf(RadioOrigin{Transfer::ReadInfo}));
  Press(Qt::Key_F4);
  EXPECT_EQ(Title(), TitleOf(RadioOrigin{Transfer::WriteInfo}));
  EXPECT_EQ(confirmed,
            (Lines{"Read Complete", "Write Complete", "Read Information Completely", "Write Information Completely"}));

  radio.terminate();
  ASSERT_TRUE(radio.waitForFinished(5000));
  QFile file(folder.filePath("memory"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const std::string written = file.readAll().toStdString();
  const RadioMemory factory = FactoryMemory();
  std::string expected(factory.begin(), factory.end());
  expected.replace(0x011, 3, "\xA5\xB2\x02");                   // frequency
  expected.replace(0x080, 1, "\x81").replace(0x10C, 1, "\x0A"); // in use, and the count of those
  expected.replace(0x200, 14, "20240229230456");
  ASSERT_EQ(written.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_EQ(written[i], expected[i]) << std::hex << i;
}

} // namespace
} // namespace mr4500x
