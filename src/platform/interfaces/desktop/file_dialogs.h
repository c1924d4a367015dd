#pragma once

#include <optional>
#include <string>

namespace mr4500x {

// Paths are UTF-8. `filter` is a list of names and patterns, the first of which is preselected:
// "Data Files(*.K4X)|*.K4X|Data Files(*.K4Y)|*.K4Y".
struct FileQuestion {
  std::string title;
  std::string filter;
  std::string folder;       // initial folder
  std::string proposedName; // path or name; Save only
  std::string extension;    // without the dot; appended to a name that has none
};

class FileDialogs {
public:
  virtual ~FileDialogs() = default;
  // An existing file; nullopt when cancelled.
  [[nodiscard]] virtual std::optional<std::string> AskOpen(const FileQuestion& question) = 0;
  // A file to write, in an existing folder; nullopt when cancelled. Asks before replacing a file.
  [[nodiscard]] virtual std::optional<std::string> AskSave(const FileQuestion& question) = 0;
};

} // namespace mr4500x
