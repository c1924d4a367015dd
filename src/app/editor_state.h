// The state of the main window apart from the image.
#pragma once

#include "desktop.h"
#include "exchange.h"
#include "settings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace mr4500x {

// Where the data in the editor came from.
struct FileOrigin {
  std::string path;
  bool operator==(const FileOrigin&) const = default;
};

struct RadioOrigin {
  Transfer transfer;
  bool operator==(const RadioOrigin&) const = default;
};

using NoOrigin = std::monostate; // the data of a new configuration
using Origin = std::variant<NoOrigin, FileOrigin, RadioOrigin>;

[[nodiscard]] std::string TitleOf(const Origin& origin); // the window title

struct EditorState {
  Origin origin;
  bool ModifiedFlag = false;   // there are unsaved changes
  bool ImageIsPartial = false; // after an interrupted read or open: data that the editor does not show was lost
  bool InfoIsPartial = false;  // the same, of the embedded information
  int CommPortNumber = 1;
  int practicePort = 0; // port of the simulated radio, or 0
  int portBeforePractice = 0;
  WriteHabits writeHabits;
  [[nodiscard]] int PortToKeep() const { return CommPortNumber == practicePort ? portBeforePractice : CommPortNumber; }
  std::string LastFileName;            // path
  std::optional<std::uint64_t> device; // the file system that the origin's folder was on
  std::optional<std::size_t> content;  // ContentHash of the origin's file when it was opened or saved
  FontDescription EmbeddedTextFont;
};

} // namespace mr4500x
