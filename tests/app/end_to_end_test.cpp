// The typical job with the program as it runs: its window under mouse and keys, its own adapters, a file on the disk,
// and the simulated radio as a process behind a serial device.
#include "configuration.h"
#include "modal_dialog.h"
#include "pdf_printer.h"
#include "program.h"
#include "program_title.h"
#include "radio_memory.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

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

// A printer whose paper is a file.
struct PaperFile final : Printers {
  std::string path;
  PosixFileSystem files;
  std::unique_ptr<Printer> CurrentPrinter() override { return std::make_unique<PdfPrinter>(files, path); }
  void SetUpPrinter(const std::string& /*title*/) override {}
};

class EndToEndTest : public testing::Test {
protected:
  EndToEndTest() {
    QLocale::setDefault(QLocale::c());
    user.callOnTimeout([this] { LookForBox(); });
    user.start(5);
    radio.start(LR7200_SIMULATOR, {"--memory", folder.filePath("memory")});
    while (!radio.canReadLine() && radio.waitForReadyRead()) {
    }
    device = radio.readLine().trimmed().toStdString();
    dialogs.path = folder.filePath("radio.K4X").toStdString();
    printers.path = folder.filePath("radio.pdf").toStdString();
  }
  ~EndToEndTest() override {
    EndRadio();
    QLocale::setDefault(QLocale::system());
  }

  bool EndRadio() {
    radio.terminate();
    return radio.state() == QProcess::NotRunning || radio.waitForFinished(5000);
  }

  // Confirms a message; nothing stays open when the job takes too long.
  void LookForBox() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    auto* const ok = dialog->findChild<QPushButton*>("cmdOk");
    if (end.hasExpired()) {
      ADD_FAILURE() << "Nobody answers " << dialog->windowTitle().toStdString();
      dialog->done(QDialog::Rejected);
    } else if (ok != nullptr) {
      const auto* const box = qobject_cast<QMessageBox*>(dialog);
      confirmed.push_back((box->windowTitle() + ": " + box->text()).toStdString());
      ClickOn(*ok, ok->rect().center());
    }
  }

  static void ClickOn(QWidget& widget, QPoint at) { QTest::mouseClick(&widget, Qt::LeftButton, {}, at); }

  void Choose(const char* name) {
    QAction* const item = window.findChild<QAction*>(name);
    for (QAction* const entry : window.menuBar()->actions()) {
      QMenu* const menu = entry->menu();
      if (!menu->actions().contains(item)) continue;
      ClickOn(*window.menuBar(), window.menuBar()->actionGeometry(entry).center());
      ASSERT_EQ(QApplication::activePopupWidget(), menu);
      menu->setActiveAction(item);
      QTest::keyClick(menu, Qt::Key_Return);
    }
    window.activateWindow(); // as a window manager does when a box has gone
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  QTableWidgetItem& Cell(int channel, GridColumn column) {
    return *grid.item(channel - 1, static_cast<int>(column) - 1);
  }
  void ClickCell(int channel, GridColumn column) {
    ClickOn(*grid.viewport(), grid.visualItemRect(&Cell(channel, column)).center());
  }
  Lines EditedCells() {
    return {Cell(2, GridColumn::RxFreq).text().toStdString(), Cell(1, GridColumn::RxTone).text().toStdString(),
            noCh.isChecked() ? "No CH" : "in use"};
  }
  // Adds a line to the embedded information; gives back what the dialog has shown.
  Lines EditInfo() {
    Lines shown;
    WhenDialogOpens([&](QWidget* dialog) {
      auto* const box = dialog->findChild<QPlainTextEdit*>("rtxtbEmbed");
      shown = {box->toPlainText().toStdString(), dialog->findChild<QLabel*>("lblLastTime")->text().toStdString()};
      QTest::keyClick(box, Qt::Key_End, Qt::ControlModifier);
      QTest::keyClick(box, Qt::Key_Return);
      QTest::keyClicks(box, "Depot 4");
      auto* const ok = dialog->findChild<QPushButton*>("cmdOK");
      ClickOn(*ok, ok->rect().center());
    });
    PressKey(Qt::Key_F2);
    return shown;
  }
  void PrintEverything() {
    WhenDialogOpens([](QWidget* dialog) {
      for (const char* const name : {"cmdSelAll", "cmdOK"}) {
        auto* const button = dialog->findChild<QPushButton*>(name);
        ClickOn(*button, button->rect().center());
      }
    });
    Choose("mnuFilePrint");
  }
  // The printed words of the pages, without the moment of printing, and without what a radio tells and no file holds.
  std::string PrintedText(const QString& pdf, const QString& lastPage) {
    QProcess tool;
    tool.start("pdftotext", {"-l", lastPage, "-layout", pdf, "-"});
    EXPECT_TRUE(tool.waitForFinished());
    QString text = QString::fromUtf8(tool.readAllStandardOutput());
    return text.remove(QRegularExpression(" +\\d+ \\w+ \\d+ [0-9:]+\n|(?<=Firmware: ).*\n")).toStdString();
  }
  void PressKey(Qt::Key key) {
    QTest::keyClick(&window, key);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  std::string Title() { return window.windowTitle().toStdString(); }

  QTimer user;
  QDeadlineTimer end{std::chrono::seconds(90)};
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
  PaperFile printers;
  FrmMain window{{messages, progress, dialogs, fonts, help, printers, files, port, clock, input,
                  folder.filePath("MR4500X.ini").toStdString(), folder.path().toStdString(), [] { return Now; },
                  [this](int) { return device; }, [](const WindowGeometry&) {}, [](const std::string&) {}}};
  QTableWidget& grid = *window.findChild<QTableWidget*>("gridChannel");
  QCheckBox& noCh = *window.findChild<QCheckBox*>("chkCH(8)"); // of channel 9
};

// What the radio holds after the edits: what a collect makes of the memory, without what no write sends.
RadioMemory EditedMemory() {
  RadioMemory memory = FactoryMemory();
  RadioImage image;
  for (const BlockPlace& place : RecordMap)
    std::copy_n(memory.begin() + place.address, place.Bytes(), BlockBytes(image, place.block).begin());
  const FieldTexts texts = BuildFieldTexts('.');
  Configuration values = Decode(image, texts).configuration;
  values.channels[1][GridColumn::RxFreq] = "442.01250";
  values.channels[0][GridColumn::RxTone] = "DCS754";
  values.channels[0][GridColumn::TailCut] = "ON"; // as every tone turns it
  values.channels[8].noCh = false;
  Encode(values, image, texts);
  for (const BlockPlace& place : RecordMap) {
    const bool isSent = place.block != ImageBlock::RadioIdBlock && place.block != ImageBlock::EmbeddedInfoBlock &&
                        place.block != ImageBlock::FirmwareVersionBlock;
    const auto block = BlockBytes(image, place.block);
    if (isSent) std::copy(block.begin(), block.end(), memory.begin() + place.address);
  }
  // The edits again, as the radio has them.
  constexpr std::pair<std::size_t, std::uint8_t> Edits[] = {
      {0x000, 0xD1}, {0x004, 0x54}, {0x005, 0x07}, {0x00C, 0xE8}, // tone and tail cut
      {0x011, 0xA5}, {0x012, 0xB2}, {0x013, 0x02},                // frequency
      {0x080, 0x81}, {0x10C, 10}};                                // in use, and the count of those
  for (const auto& [address, byte] : Edits)
    EXPECT_EQ(std::exchange(memory[address], byte), byte) << std::hex << address;
  std::copy_n("20240229230456\0", 16, memory.begin() + 0x200);
  std::size_t address = 0x25A; // after the text: a line more
  for (const char character : {'\r', '\n', 'D', 'e', 'p', 'o', 't', ' ', '4'}) {
    memory[address] = static_cast<std::uint8_t>(character);
    address += 2;
  }
  return memory;
}

TEST_F(EndToEndTest, ReadsEditsSavesOpensAndWrites) {
  ASSERT_FALSE(device.empty());
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_EQ(Title(), ProgramTitle);
  Choose("mnuProgramRead");
  ASSERT_EQ(Title(), TitleOf(RadioOrigin{Transfer::Read}));
  EXPECT_EQ(EditedCells(), (Lines{"441.50000", "CTC88.5", "No CH"}));

  ClickCell(2, GridColumn::RxFreq);
  ASSERT_EQ(QApplication::focusWidget(), window.findChild<QLineEdit*>("txtChFreq"));
  QTest::keyClicks(QApplication::focusWidget(), "442.0137"); // over the selected text; rounded to the step
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);
  ClickCell(1, GridColumn::RxTone);
  auto* const tones = window.findChild<QComboBox*>("cboCTCDCS");
  ClickOn(*tones, tones->rect().center());
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QTest::keyClicks(tones->view(), "DCS754");
  QTest::keyClick(tones->view(), Qt::Key_Enter); // picks it
  QTest::keyClick(tones, Qt::Key_Enter);         // leaves the editor
  ClickOn(noCh, noCh.rect().center());
  const Lines edited = {"442.01250", "DCS754", "in use"};
  ASSERT_EQ(EditedCells(), edited);

  Choose("mnuFileSave");
  EXPECT_EQ(Title(), TitleOf(FileOrigin{dialogs.path}));
  Choose("mnuFileClose"); // all is saved: no question
  EXPECT_EQ(Title(), ProgramTitle);
  EXPECT_NE(EditedCells()[0], edited[0]);
  Choose("mnuFileOpen");
  EXPECT_EQ(Title(), TitleOf(FileOrigin{dialogs.path}));
  EXPECT_EQ(EditedCells(), edited);
  EXPECT_EQ(dialogs.asked, (Lines{"Save As", "Open"}));
  Choose("mnuProgramWrite");
  EXPECT_EQ(Title(), TitleOf(RadioOrigin{Transfer::Write}));

  PressKey(Qt::Key_F3);
  EXPECT_EQ(Title(), TitleOf(RadioOrigin{Transfer::ReadInfo}));
  EXPECT_EQ(EditInfo(), (Lines{"Demonstration radio\nHandle with care", "2024-02-29, 23:04:56"}));
  PressKey(Qt::Key_F4);
  EXPECT_EQ(Title(), TitleOf(RadioOrigin{Transfer::WriteInfo}));
  EXPECT_EQ(confirmed,
            (Lines{"Read Complete: Read data is complete. Press OK button to continue ...",
                   "Write Complete: Write data is complete. Press OK button to continue ...",
                   "Read Information Completely: Read information is complete. Press OK button to continue ...",
                   "Write Information Completely: Write information completely. Press OK to continue."}));

  PrintEverything();
  const QString paper = folder.filePath("radio.pdf");
  const std::string printed = PrintedText(paper, "3");
  for (const char* const text : {"442.01250", "DCS754", "Demonstration radio", "Depot 4"})
    EXPECT_NE(printed.find(text), std::string::npos) << text;
  // The command line tool prints the same of the file.
  const QString fromFile = folder.filePath("cli.pdf");
  EXPECT_EQ(QProcess::execute(MR4500X_CLI, {"print", "--reports", "channels,tts", dialogs.path.c_str(), fromFile}), 0);
  EXPECT_EQ(PrintedText(fromFile, "2"), PrintedText(paper, "2"));

  ASSERT_TRUE(EndRadio());
  std::ifstream file(folder.filePath("memory").toStdString(), std::ios::binary);
  const std::string written{std::istreambuf_iterator<char>(file), {}};
  const RadioMemory expected = EditedMemory();
  ASSERT_EQ(written.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_EQ(static_cast<std::uint8_t>(written[i]), expected[i]) << std::hex << i;
}

} // namespace
} // namespace mr4500x
