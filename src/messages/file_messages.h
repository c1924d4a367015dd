// The messages about data files.
#pragma once

#include <cstdint>
#include <optional>

#include "data_file.h"
#include "message.h"

namespace mr4500x {

enum class SaveCommand : std::uint8_t { Save, SaveAs };

inline const Message NewVersionNotice = {MessageIcon::Exclamation, "New Version File",
                                         "This software version isn't applied to the radio, please use new software."};

// nullopt for Loaded.
[[nodiscard]] inline std::optional<Message> MessageFor(LoadOutcome outcome) {
  // clang-format off
  switch (outcome) {
  case LoadOutcome::Loaded:       return std::nullopt;
  case LoadOutcome::LaterVersion: return Message{MessageIcon::Information, "Error", "Later Version of this File!"};
  case LoadOutcome::ErrorVersion: return Message{MessageIcon::Information, "Error", "Error Version of this File!"};
  case LoadOutcome::Missing:
  case LoadOutcome::Damaged:      break;
  }
  // clang-format on
  return Message{MessageIcon::Exclamation, "Open File Error", "File has been damaged!"};
}

[[nodiscard]] inline Message MessageForFailed(SaveCommand command) {
  return {MessageIcon::Exclamation, "Save File Error",
          command == SaveCommand::SaveAs ? "File hasn't been saved. Please redo!"
                                         : "File hasn't been saved. Please try again!"};
}

} // namespace mr4500x
