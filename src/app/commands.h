// The commands of the menus and the toolbar, as the rows of action_table.cpp name them. FrmMain::RunCommand runs them.
#pragma once

#include "editor_state.h"
#include "main_services.h"
#include "messages.h"
#include "radio_image.h"
#include "recent_files.h"

#include <array>
#include <exception>

class QAction;
class QWidget;

namespace mr4500x {

class EditorPanel;
class StatusPanels;
class WorkKeeper;

using RecentItems = std::array<QAction*, RecentFileCount>;

// The context of the commands, all owned by the main window.
struct CommandContext {
  const MainServices& services;
  RadioImage& image;
  EditorState& state;
  EditorPanel& panel;
  StatusPanels& status;
  WorkKeeper& keeper;
  const RecentItems& recentItems;
  QAction& closeItem;
  QWidget& window;

  void SetOrigin(Origin origin) const; // also updates the title
  // The name to propose for a file, without an extension: the data file's or, after a read, the radio's.
  [[nodiscard]] std::string ProposedStem() const;
  Answer Show(const Message& message, MessageButtons buttons = MessageButtons::Ok) const;
};

using Command = void (*)(const CommandContext& context);

enum class CloseEnd : std::uint8_t { Closed, Cancelled };

namespace commands {

void New(const CommandContext& context); // does nothing: Close makes a new configuration
void Open(const CommandContext& context);
void Recover(const CommandContext& context); // opens a copy of unsaved work
void Close(const CommandContext& context);
void Save(const CommandContext& context);
void SaveAs(const CommandContext& context);
void Print(const CommandContext& context);
void Copy(const CommandContext& context);
void Paste(const CommandContext& context);
void Read(const CommandContext& context);
void Write(const CommandContext& context);
void ToggleVerify(const CommandContext& context);
void ToggleBackUp(const CommandContext& context);
// The three commands for the embedded information do not affect the editor, its changes or any other block.
void EditInfo(const CommandContext& context);
void ReadInfo(const CommandContext& context);
void WriteInfo(const CommandContext& context);
void Port(const CommandContext& context);
void HelpContents(const CommandContext& context);
void HelpIndex(const CommandContext& context);
void HelpHere(const CommandContext& context); // help about the control that has the focus
void WhatsThis(const CommandContext& context);
void About(const CommandContext& context);
void Practise(const CommandContext& context);    // begins or ends it
void EndPractice(const CommandContext& context); // the simulated radio has ended

void OpenGiven(const CommandContext& context,
               const std::string& path); // path from the recent files or the command line
void Compare(const CommandContext& context);
void CompareRadio(const CommandContext& context);
void AskImport(const CommandContext& context);
void AskExport(const CommandContext& context);
void SaveSample(const CommandContext& context); // a list of channels to begin with
// Import a list of channels from a file or a text: completely as one step, or not at all with a message.
void ImportFile(const CommandContext& context, const std::string& path);
void ImportChannels(const CommandContext& context, const std::string& text);
void ShowRecentFiles(const CommandContext& context);
// Asks before saving or writing if data that the editor does not show was lost by an interrupted read or open.
[[nodiscard]] bool MayStore(const CommandContext& context);
// Offers unsaved work of an earlier window and takes it if the user agrees.
[[nodiscard]] bool OpenLeftWork(const CommandContext& context);
void StoreProgramSettings(const CommandContext& context);
// Stores the settings, then asks about unsaved data. Cancelled means: don't exit.
[[nodiscard]] CloseEnd PrepareExit(const CommandContext& context);

} // namespace commands

// Runs a phase of a command. Returns false if it returns false or throws (out of memory).
template<typename Phase>
[[nodiscard]] bool Succeeds(Phase phase) {
  try {
    return phase();
  } catch (const std::exception&) {
    return false;
  }
}

} // namespace mr4500x
