#include "file_commands.h"

#include "command_phase.h"
#include "data_file.h"
#include "editor_panel.h"
#include "program_title.h"
#include "recent_files.h"
#include "recent_menu.h"
#include "settings.h"

#include <optional>

namespace mr4500x {

constexpr char UnsavedDataText[] = "Data hasn't been saved. Do you want to continue?";
constexpr char OpenTitle[] = "Open";
constexpr char SaveTitle[] = "Save";
constexpr char SaveAsTitle[] = "Save As";
constexpr char OpenFilter[] = "Data Files(*.K4X)"
                              "|*.K4X|"
                              "Data Files(*.K4Y)"
                              "|*.K4Y";
constexpr char SaveFilter[] = "Data files(*.K4X)"
                              "|*.K4X|"
                              "Data files(*.K4Y)"
                              "|*.K4Y";
constexpr char DefaultExtension[] = "K4X";

void FileCommands::Open() {
  m_context.panel.CommitOpenEditors();
  const std::optional<std::string> path = m_context.services.dialogs.AskOpen(
      {OpenTitle, OpenFilter, m_context.services.folderForFiles, /*proposedName*/ "", DefaultExtension});
  if (!path) return;
  m_context.state.LastFileName = *path;
  OpenFile(*path);
}

void FileCommands::OpenGiven(const std::string& path) {
  m_context.panel.CommitOpenEditors();
  m_context.state.LastFileName = path;
  OpenFile(path);
}

void FileCommands::OpenFile(const std::string& path) {
  const MainServices& services = m_context.services;
  const std::optional<FileStatus> status = services.files.Status(path);
  if (status && status->kind == FileKind::Missing) {
    Show(*MessageFor(LoadOutcome::Missing));
    RemoveRecent(services.files, services.settingsFile, path);
    m_context.recent.Rebuild();
    return;
  }
  const Origin& origin = m_context.state.origin;
  if (origin == Origin(FileOrigin{path})) return;
  if (origin != Origin() && Close() == CloseEnd::Cancelled) return;

  if (!Succeeds([&] { return LoadInto(path); })) return;
  BelongTo(path);
}

bool FileCommands::LoadInto(const std::string& path) {
  const MainServices& services = m_context.services;
  LoadResult result;
  const bool isRead = Succeeds([&] {
    result = LoadDataFile(services.files, path, m_context.image);
    return true;
  });
  if (isRead && result.markerNotEmpty) Show(NewVersionNotice);
  if (const auto message = MessageFor(result.outcome)) {
    Show(*message);
    if (result.outcome == LoadOutcome::Missing) { // a dangling link
      RemoveRecent(services.files, services.settingsFile, path);
      m_context.recent.Rebuild();
    }
    return false;
  }
  if (Succeeds([&] { return m_context.panel.Fill(), true; })) return true;
  Show(*MessageFor(LoadOutcome::Damaged));
  return false;
}

CloseEnd FileCommands::Close() {
  m_context.panel.HideOpenEditors();
  if (m_context.state.origin == Origin()) return CloseEnd::Closed;
  if (AskAboutUnsavedData() == CloseEnd::Cancelled) return CloseEnd::Cancelled;
  m_context.SetOrigin(NoOrigin());
  m_context.panel.FillReset(m_context.services.now());
  m_context.closeItem.setEnabled(false);
  m_context.state.ModifiedFlag = false;
  return CloseEnd::Closed;
}

CloseEnd FileCommands::AskAboutUnsavedData() {
  if (!m_context.state.ModifiedFlag) return CloseEnd::Closed;
  const Answer answer = m_context.services.messages.Show(MessageIcon::Exclamation, ProgramTitle, UnsavedDataText,
                                                         MessageButtons::YesNoCancel);
  if (answer == Answer::Yes) Save(); // goes on even if saving fails
  return answer == Answer::Cancel ? CloseEnd::Cancelled : CloseEnd::Closed;
}

void FileCommands::Save() {
  m_context.panel.CommitOpenEditors();
  const Origin& origin = m_context.state.origin;
  if (std::holds_alternative<RadioOrigin>(origin)) {
    SaveAs();
    return;
  }
  if (const auto* const file = std::get_if<FileOrigin>(&origin))
    m_context.state.LastFileName = file->path;
  else if (!AskSaveName(SaveTitle))
    return;
  m_context.panel.Collect();
  WriteFile(SaveCommand::Save);
}

void FileCommands::SaveAs() {
  m_context.panel.CommitOpenEditors();
  m_context.panel.Collect();
  if (AskSaveName(SaveAsTitle)) WriteFile(SaveCommand::SaveAs);
}

bool FileCommands::AskSaveName(const char* title) {
  std::string& name = m_context.state.LastFileName;
  const std::optional<std::string> chosen = m_context.services.dialogs.AskSave(
      {title, SaveFilter, m_context.services.folderForFiles, name, DefaultExtension});
  if (chosen) name = *chosen;
  return chosen.has_value();
}

void FileCommands::WriteFile(SaveCommand command) {
  const std::string& path = m_context.state.LastFileName;
  if (Succeeds([&] { return SaveDataFile(m_context.services.files, path, m_context.image); }))
    BelongTo(path);
  else
    Show(MessageForFailed(command));
}

// The editor now holds the data of this file.
void FileCommands::BelongTo(const std::string& path) {
  m_context.SetOrigin(FileOrigin{path});
  m_context.state.ModifiedFlag = false;
  m_context.closeItem.setEnabled(true);
  AddRecent(m_context.services.files, m_context.services.settingsFile, path);
  m_context.recent.Rebuild();
}

CloseEnd FileCommands::PrepareExit() {
  const MainServices& services = m_context.services;
  StoreSettings(services.files, services.settingsFile, m_context.state.CommPortNumber, m_context.state.LastFileName);
  return AskAboutUnsavedData();
}

void FileCommands::Show(const Message& message) {
  m_context.services.messages.Show(message.icon, message.title, message.text, MessageButtons::Ok);
}

} // namespace mr4500x
