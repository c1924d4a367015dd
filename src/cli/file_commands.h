// The commands that need only a data file, and loading and saving for all commands.
#pragma once

#include "configuration.h"
#include "data_file.h"
#include "terminal.h"

#include <functional>
#include <optional>
#include <string>

namespace mr4500x {

enum class ShowAs { Table, Json };

// Follows DataErrorText.
inline constexpr char ZeroStandardText[] = " (The 5-tone standard is 0. It is taken for ZVEI1.)";

// Writes the default configuration. A file that is there is an error unless it may be replaced.
[[nodiscard]] ExitStatus RunNew(FileSystem& files, const std::string& path, bool mayReplace, const LocalTime& now,
                                Terminal& terminal);

// Prints every setting as the editor shows it, with "." as the decimal separator.
[[nodiscard]] ExitStatus RunShow(FileSystem& files, const std::string& path, ShowAs form, Terminal& terminal);

// Loads a data file, or standard input for "-", into a new image and prints its messages. False if it could not be
// loaded.
[[nodiscard]] bool LoadForCommand(FileSystem& files, const std::string& path, RadioImage& image, Terminal& terminal);

// What the image shows, with a message where a key conflicts. A stored 5-tone standard 0, with which nothing could be
// shown, becomes 1, and a message says so.
[[nodiscard]] Configuration ValuesForCommand(const std::string& path, const FieldTexts& texts, RadioImage& image,
                                             const Terminal& terminal);

// Both. nullopt if it could not be loaded.
[[nodiscard]] std::optional<Configuration> LoadValuesForCommand(FileSystem& files, const std::string& path,
                                                                Terminal& terminal);

// The text of a file, or of standard input for "-". nullopt, with a message, if it can't be read.
[[nodiscard]] std::optional<std::string> ReadTextForCommand(FileSystem& files, const std::string& path,
                                                            Terminal& terminal);

// A file that a command changes, and where the result goes.
struct FileChange {
  std::string path, output;
  std::string input{};   // what is read beside it
  bool isDryRun = false; // only prints what would differ
};
// Changes a data file and stores the result: under a lock where it replaces the file, and not at all if nothing has
// changed or `change` has another end than Done. `before` is what the file shows.
[[nodiscard]] ExitStatus
ChangeFile(FileSystem& files, const FileChange& given, Terminal& terminal,
           const std::function<ExitStatus(RadioImage& image, const Configuration& before)>& change);

// Whether something else stored at `target` would overwrite a data file: `dataFile` itself, or any other whatever its
// name.
[[nodiscard]] bool LeadsToDataFile(FileSystem& files, const std::string& dataFile, const std::string& target);

// Stores a table or a data file, for "-" on standard output. Prints a message if it can't be stored.
[[nodiscard]] ExitStatus StoreTextForCommand(FileSystem& files, const std::string& path, std::string_view text,
                                             Terminal& terminal);
[[nodiscard]] ExitStatus SaveForCommand(FileSystem& files, const std::string& path, const RadioImage& image,
                                        Terminal& terminal);
// Fails if a file is there, unless it may be replaced.
[[nodiscard]] ExitStatus SaveNewForCommand(FileSystem& files, const std::string& path, bool mayReplace,
                                           const RadioImage& image, Terminal& terminal);

} // namespace mr4500x
