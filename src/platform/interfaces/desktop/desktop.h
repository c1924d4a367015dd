// The desktop's dialogs and windows that the program opens, except message boxes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// Paths are UTF-8. `filter` is a list of names and patterns, the first of which is preselected:
// "Data Files(*.K4X)|*.K4X|Data Files(*.K4Y)|*.K4Y".
struct FileQuestion {
  std::string title;
  std::string filter;
  std::string folder;                  // initial folder
  std::string proposedName;            // path or name; Save only
  std::string extension;               // default extension, without the dot
  std::size_t* chosenFilter = nullptr; // receives the number of the filter that was chosen in Save
};

// nullopt when cancelled.
class FileDialogs {
public:
  virtual ~FileDialogs() = default;
  // An existing file.
  [[nodiscard]] virtual std::optional<std::string> AskOpen(const FileQuestion& question) = 0;
  // A file to write, in an existing folder. A name without one of the filters' extensions gets the extension of the
  // chosen filter. Asks before replacing a file.
  [[nodiscard]] virtual std::optional<std::string> AskSave(const FileQuestion& question) = 0;
};

struct FontDescription {
  std::string name = "Arial";
  int size = 8; // points
  bool bold = false, italic = false;
  bool operator==(const FontDescription&) const = default;
};

class FontDialog {
public:
  virtual ~FontDialog() = default;
  // nullopt when cancelled.
  [[nodiscard]] virtual std::optional<FontDescription> AskFont(const FontDescription& preset) = 0;
};

// Reports its own failures to the user.
class HelpViewer {
public:
  virtual ~HelpViewer() = default;
  virtual void OpenContents() = 0;
  virtual void OpenIndex() = 0;
  virtual void OpenPage(const std::string& page) = 0; // "scan.html", "band.html#limits"
};

// The progress window of a transfer: a title, a line of text and a bar.
class ProgressView {
public:
  virtual ~ProgressView() = default;
  virtual void Open(std::string_view title, std::string_view text, int maximum) = 0; // starts at 0
  virtual void SetValue(int value) = 0;                                              // clamped to 0..maximum
  virtual void Close() = 0;                                                          // no effect when not open
};

} // namespace mr4500x
