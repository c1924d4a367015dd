// The commands that work on a data file alone.
#pragma once

#include "configuration.h"
#include "data_file.h"
#include "exit_status.h"
#include "terminal.h"

#include <string>

namespace mr4500x {

enum class ShowAs { Table, Json };

// Writes the default configuration.
[[nodiscard]] ExitStatus RunNew(FileSystem& files, const std::string& path, const LocalTime& now, Terminal& terminal);

// Prints every setting as the editor shows it, with "." as the decimal separator.
[[nodiscard]] ExitStatus RunShow(FileSystem& files, const std::string& path, ShowAs form, Terminal& terminal);

// Loads a data file over a new image and reports what there is to report; false when it could not be loaded.
[[nodiscard]] bool LoadForCommand(FileSystem& files, const std::string& path, RadioImage& image, Terminal& terminal);

// The same, and decodes the image into what the editor would show; false, with its message, when it shows only a part.
[[nodiscard]] bool LoadValuesForCommand(FileSystem& files, const std::string& path, char decimalSeparator,
                                        RadioImage& image, Configuration& values, Terminal& terminal);

// Stores the image; false, with its message, when it could not be.
[[nodiscard]] bool SaveForCommand(FileSystem& files, const std::string& path, const RadioImage& image,
                                  Terminal& terminal);

} // namespace mr4500x
