// What the user is told about data files, for the windows and the command line alike.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "data_file.h"
#include "message_view.h"

namespace mr4500x {

struct FileMessage {
  MessageIcon icon;
  std::string_view title;
  std::string_view text;
  bool operator==(const FileMessage&) const = default;
};

enum class SaveCommand : std::uint8_t { Save, SaveAs };

inline constexpr FileMessage NewVersionNotice = {
    MessageIcon::Exclamation, "New Version File",
    "This software version isn't applied to the radio, please use new software."};

// Nothing to tell of a loaded file.
[[nodiscard]] constexpr std::optional<FileMessage> MessageFor(LoadOutcome outcome) {
  switch (outcome) {
  case LoadOutcome::Loaded:
    return std::nullopt;
  case LoadOutcome::LaterVersion:
    return FileMessage{MessageIcon::Information, "Error", "Later Version of this File!"};
  case LoadOutcome::ErrorVersion:
    return FileMessage{MessageIcon::Information, "Error", "Error Version of this File!"};
  case LoadOutcome::Missing:
  case LoadOutcome::Damaged:
    break;
  }
  return FileMessage{MessageIcon::Exclamation, "Open File Error", "File has been damaged!"};
}

[[nodiscard]] constexpr FileMessage MessageForFailed(SaveCommand command) {
  return {MessageIcon::Exclamation, "Save File Error",
          command == SaveCommand::SaveAs ? "File hasn't been saved. Please redo!"
                                         : "File hasn't been saved. Please try again!"};
}

} // namespace mr4500x
