// The desktop's dialogs for choosing a file.
#pragma once

#include <optional>
#include <string>

namespace mr4500x {

// Paths are UTF-8. `filter` holds pairs of a name and a pattern: "Data Files(*.K4X)|*.K4X|Data Files(*.K4Y)|*.K4Y";
// the first pair is chosen when the dialog opens.
struct FileQuestion {
  std::string title;
  std::string filter;
  std::string folder;       // where the dialog starts
  std::string proposedName; // Save only: a path or a name
  std::string extension;    // added to a name without one
};

class FileDialogs {
public:
  virtual ~FileDialogs() = default;
  // An existing file; nothing when the user cancelled.
  [[nodiscard]] virtual std::optional<std::string> AskOpen(const FileQuestion& question) = 0;
  // A file to write, in a folder that exists; asks before an existing one is taken.
  [[nodiscard]] virtual std::optional<std::string> AskSave(const FileQuestion& question) = 0;
};

} // namespace mr4500x
