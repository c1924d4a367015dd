// The commands that need only a data file, and loading and saving for all commands.
#pragma once

#include "configuration.h"
#include "data_file.h"
#include "fields.h"
#include "file_access.h"
#include "terminal.h"

#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>

namespace mr4500x {

// Follows DataErrorText.
inline constexpr char ZeroStandardText[] = " (The 5-tone standard is 0. It is taken for ZVEI1.)";

// Writes the default configuration. An existing file is an error unless it may be replaced.
[[nodiscard]] ExitStatus RunNew(FileSystem& files, const std::string& path, bool mayReplace, const LocalTime& now,
                                Terminal& terminal);

// Prints every setting as the editor shows it, with "." as the decimal separator.
[[nodiscard]] ExitStatus RunShow(FileSystem& files, const std::string& path, bool asJson, Terminal& terminal);

// Loads a data file, or standard input for "-", into a new image and prints its messages. False if it could not be
// loaded.
[[nodiscard]] bool LoadForCommand(FileSystem& files, const std::string& path, RadioImage& image, Terminal& terminal);

// The configuration of the image, with a message for each conflicting key. A stored 5-tone standard 0, with which
// nothing could be shown, becomes 1, with a message.
[[nodiscard]] Configuration ValuesForCommand(const std::string& path, const FieldTexts& texts, RadioImage& image,
                                             const Terminal& terminal);

// Loads a data file and returns its configuration, or nullopt if it could not be loaded.
[[nodiscard]] std::optional<Configuration> LoadValuesForCommand(FileSystem& files, const std::string& path,
                                                                Terminal& terminal);

// The text of a file, or of standard input for "-". nullopt, with a message, if it can't be read.
[[nodiscard]] std::optional<std::string> ReadTextForCommand(FileSystem& files, const std::string& path,
                                                            Terminal& terminal);

// Whether the file, or what its links lead to, has the ending of a data file or can be loaded as one.
[[nodiscard]] bool IsDataFile(FileSystem& files, const std::string& path);

// Whether writing to the path would change the input, even if that is a file at standard input.
[[nodiscard]] bool LeadsToInput(FileSystem& files, const std::string& path, const std::string& input);

// False, with a message, if the output is also the input, or the file at standard output or standard error.
[[nodiscard]] bool CheckOutput(FileSystem& files, const std::string& path, const std::string& input,
                               Terminal& terminal);
// Checks the same for data other than a configuration, which must not overwrite a data file.
[[nodiscard]] bool CheckExport(FileSystem& files, const std::string& path, Terminal& terminal);

// A file that a command changes, and the destination of the result.
struct FileChange {
  std::string path, output;
  std::string input{};   // a file that is read in addition
  bool isDryRun = false; // only prints the differences
};
// Changes a data file and stores the result, under a lock if it replaces the file. Stores nothing if nothing has
// changed or `change` does not return Done. Prints which settings have changed in addition to those that `change` adds
// to `named`.
[[nodiscard]] ExitStatus
ChangeFile(FileSystem& files, const FileChange& given, Terminal& terminal,
           const std::function<ExitStatus(RadioImage& image, std::set<FieldAt>& named)>& change);

// Stores the bytes as StoreOutput does. Prints a message if other hard links keep the old content.
FileResult StoreForCommand(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes,
                           Surplus surplus, Terminal& terminal);
// Stores a table or a data file in the same way. Also prints a message if it can't be stored.
[[nodiscard]] ExitStatus StoreTextForCommand(FileSystem& files, const std::string& path, std::string_view text,
                                             Terminal& terminal);
[[nodiscard]] ExitStatus SaveForCommand(FileSystem& files, const std::string& path, const RadioImage& image,
                                        Terminal& terminal);
// Fails if the file exists, unless it may be replaced.
[[nodiscard]] ExitStatus SaveNewForCommand(FileSystem& files, const std::string& path, bool mayReplace,
                                           const RadioImage& image, Terminal& terminal);

} // namespace mr4500x
