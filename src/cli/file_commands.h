// The commands that need only a data file, and loading and saving for all commands.
#pragma once

#include "configuration.h"
#include "data_file.h"
#include "terminal.h"

#include <string>

namespace mr4500x {

enum class ShowAs { Table, Json };

// Writes the default configuration. A file that is there is an error unless it may be replaced.
[[nodiscard]] ExitStatus RunNew(FileSystem& files, const std::string& path, bool mayReplace, const LocalTime& now,
                                Terminal& terminal);

// Prints every setting as the editor shows it, with "." as the decimal separator.
[[nodiscard]] ExitStatus RunShow(FileSystem& files, const std::string& path, ShowAs form, Terminal& terminal);

// Loads a data file, or standard input for "-", into a new image and prints its messages. False if it could not be
// loaded.
[[nodiscard]] bool LoadForCommand(FileSystem& files, const std::string& path, RadioImage& image, Terminal& terminal);

// The same, and decodes the image. False, with a message, also if it can be decoded only in part.
[[nodiscard]] bool LoadValuesForCommand(FileSystem& files, const std::string& path, char decimalSeparator,
                                        RadioImage& image, Configuration& values, Terminal& terminal);

// Whether something else stored at `target` would overwrite a data file: `dataFile` itself, or any other whatever its
// name.
[[nodiscard]] bool LeadsToDataFile(FileSystem& files, const std::string& dataFile, const std::string& target);

// Stores a table, for "-" on standard output.
[[nodiscard]] ExitStatus StoreTextForCommand(FileSystem& files, const std::string& path, const std::string& text,
                                             Terminal& terminal);

// Stores it, for "-" on standard output. False, with a message, if it could not be stored.
[[nodiscard]] bool SaveForCommand(FileSystem& files, const std::string& path, const RadioImage& image,
                                  Terminal& terminal);

} // namespace mr4500x
