// The main window with a scripted desktop, which answers dialogs and logs what happens, and a radio on COM3.
#pragma once

#include "data_file.h"
#include "editor_panel.h"
#include "file_access.h"
#include "files_fixture.h"
#include "frm_main.h"
#include "modal_dialog.h"
#include "pdf_printer.h"
#include "practice_radio.h"
#include "program_title.h"
#include "require.h"
#include "scripted_radio.h"
#include "transfer_guard.h"

#include <QTest>
#include <QtWidgets>

#include <deque>

namespace mr4500x {

using Lines = std::vector<std::string>;

struct ScriptedDesktop final : MessageView, ProgressView, FileDialogs, FontDialog, HelpViewer, Printers {
  Lines happened;
  std::deque<Answer> answers;                   // answers to questions
  std::deque<std::optional<std::string>> paths; // results of file dialogs; nullopt means cancelled
  FileQuestion lastQuestion;
  std::size_t filter = 0;                     // the filter chosen in Save
  std::function<void()> beforeAnswer = [] {}; // once
  bool showsProgress = false;
  FileSystem& files = MachineFiles();
  std::string pdfFile; // the file that is printed to, without a printer

  Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) override {
    const std::string icons[] = {"", "i|", "!|", "X|"};
    happened.push_back(icons[static_cast<int>(icon)] + std::string(title) + "|" + std::string(text));
    std::exchange(beforeAnswer, [] {})();
    if (buttons == MessageButtons::Ok) return Answer::Ok;
    happened.back() += buttons == MessageButtons::YesNo           ? "|YN"
                       : buttons == MessageButtons::YesNoOrCancel ? "|YNC(C)"
                                                                  : "|YNC";
    EXPECT_FALSE(answers.empty()) << "unexpected question: " << text;
    const Answer answer = answers.empty() ? Answer::Cancel : answers.front();
    if (!answers.empty()) answers.pop_front();
    return answer;
  }
  void Open(std::string_view, std::string_view, int) override { showsProgress = true; }
  void SetValue(int) override {}
  void Close() override { showsProgress = false; }
  std::optional<std::string> AskOpen(const FileQuestion& question) override { return Ask(question); }
  std::optional<std::string> AskSave(const FileQuestion& question) override { return Ask(question); }
  std::optional<FontDescription> AskFont(const FontDescription& preset) override {
    return {{"Courier", preset.size + 9}};
  }
  std::unique_ptr<Printer> CurrentPrinter() override {
    return std::make_unique<PdfPrinter>(
        pdfFile, [this](auto content) { return ReplaceFile(files, pdfFile, content, Surplus::Drop); });
  }
  void SetUpPrinter(const std::string& title) override { happened.push_back("dialog " + title); }
  std::optional<std::string> PdfFile() override { return std::exchange(pdfFile, ""); } // for one job
  void SetPdfFile(const std::string& path) override { pdfFile = path; }
  void OpenContents() override { happened.emplace_back("help contents"); }
  void OpenIndex() override { happened.emplace_back("help index"); }
  void OpenPage(const std::string& page) override { happened.push_back("help " + page); }

private:
  std::optional<std::string> Ask(const FileQuestion& question) {
    happened.push_back("dialog " + question.title);
    lastQuestion = question;
    if (question.chosenFilter != nullptr) *question.chosenFilter = filter;
    if (paths.empty()) return std::nullopt;
    std::optional<std::string> path = paths.front();
    paths.pop_front();
    return path;
  }
};

class ProgramTest : public FilesTest {
protected:
  explicit ProgramTest(bool starts = true) {
    Put("MR4500X.ini", "[Comm Port]\r\nCommon Port=3\r\n");
    ResetToDefaults(image, {2004, 11, 4, 9, 5, 7});
    image.FiveToneStandard = 1;
    if (starts) Start();
  }

  void Start() {
    window = std::make_unique<FrmMain>(MainServices{
        *messageView, *progressView, desktop, desktop, desktop, desktop, files, serialPort ? *serialPort : radio, radio,
        input, practice, Path("MR4500X.ini"), Path(""), Path("kept"), [] { return LocalTime{2004, 11, 4, 9, 5, 7}; },
        [](int port) { return port == 3 ? "/dev/ttyUSB2" : std::string(); },
        [](const std::string&) { return std::string("minicom"); },
        [this](const WindowGeometry&) { desktop.happened.emplace_back("geometry"); },
        [this](const std::string& page) { desktop.happened.push_back("link " + page); }});
    window->show();
  }

  QAction* Item(const std::string& name) { return window->findChild<QAction*>(QString::fromStdString(name)); }
  // Chooses the item. The questions that follow get the answers, and the file dialog gets the file.
  void Choose(const std::string& item, std::deque<Answer> given = {}, const std::string& file = {}) {
    if (!given.empty()) desktop.answers = std::move(given);
    if (!file.empty()) desktop.paths = {Path(file)};
    Item(item)->trigger();
  }
  QToolButton* Button(const std::string& key) { return window->findChild<QToolButton*>(QString::fromStdString(key)); }
  std::string Status(int panel) {
    return window->findChild<QLabel*>(QStringLiteral("stbMain.Panels(%1)").arg(panel))->text().toStdString();
  }
  std::string Title() { return window->windowTitle().toStdString(); }
  std::string TitleOf(const std::string& name) { return "MR4500X Programming Software - " + Path(name); }
  void Edit() { emit window->Panel().Changed(); }
  // What has happened since the last call.
  Lines Happened() { return std::exchange(desktop.happened, {}); }
  Lines HappenedAt(const std::string& item, std::deque<Answer> given = {}, const std::string& file = {}) {
    Choose(item, std::move(given), file);
    return Happened();
  }

  void PutDataFile(const std::string& name) { EXPECT_TRUE(SaveDataFile(files, Path(name), image)); }
  // The image of files, with channel 5 in use.
  void PutInRadio() {
    image.ChannelBlock(4, 0) = 0x81;
    for (const BlockLocation& place : RecordMap) {
      const auto bytes = BlockBytes(image, place.block);
      std::copy(bytes.begin(), bytes.end(), &radio.memory.at(place.address));
    }
  }
  void OpenFile(const std::string& name) {
    EXPECT_EQ(HappenedAt("mnuFileOpen", {}, name), Lines{"dialog Open"});
    EXPECT_EQ(Title(), TitleOf(name));
  }
  Lines Recent() {
    Lines captions;
    for (int i = 1; i <= 4; ++i)
      if (const QAction* entry = Item("mnuRecent(" + std::to_string(i) + ")"); entry->isVisible())
        captions.push_back(entry->text().toStdString());
    return captions;
  }

  const std::string question = "!|MR4500X Programming Software|Data hasn't been saved. Do you want to continue?|YNC";
  const std::string damaged = "!|Open File Error|File has been damaged!";
  RadioImage image; // what test files hold
  ScriptedDesktop desktop;
  MessageView* messageView = &desktop;
  ProgressView* progressView = &desktop;
  ScriptedRadio radio;
  SerialPort* serialPort = nullptr; // instead of the radio's
  UserInput input;
  struct WatchedRadio : PracticeRadio {
    using PracticeRadio::PracticeRadio, QObject::receivers;
  } practice{""}; // not installed
  std::unique_ptr<FrmMain> window;
};

} // namespace mr4500x
