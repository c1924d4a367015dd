// The commands of the File menu, and what has to be done before the program exits.
#pragma once

#include "command_context.h"
#include "file_messages.h"

#include <cstdint>
#include <string>

namespace mr4500x {

enum class CloseEnd : std::uint8_t { Closed, Cancelled };

class FileCommands {
public:
  explicit FileCommands(const CommandContext& context) : m_context(context) {}

  void Open();
  void OpenGiven(const std::string& path); // from the recent files or the command line
  CloseEnd Close();
  void Save();
  void SaveAs();

  // Stores the settings, then asks about unsaved data. Cancelled: don't exit.
  [[nodiscard]] CloseEnd PrepareExit();

private:
  void OpenFile(const std::string& path);
  [[nodiscard]] bool LoadInto(const std::string& path);
  [[nodiscard]] bool AskSaveName(const char* title);
  [[nodiscard]] CloseEnd AskAboutUnsavedData();
  void WriteFile(SaveCommand command);
  void BelongTo(const std::string& path);
  void Show(const Message& message);

  CommandContext m_context;
};

} // namespace mr4500x
