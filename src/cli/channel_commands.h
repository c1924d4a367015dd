// The commands that exchange the channels of a data file with spreadsheets and other programs.
#pragma once

#include "file_commands.h"

#include <string>

namespace mr4500x {

class FileSystem;

// Writes the channels as CSV, to standard output for "-".
[[nodiscard]] ExitStatus RunChannelsExport(FileSystem& files, const std::string& path, const std::string& csv,
                                           Terminal& terminal);

// Imports the channels of the list `given.input`. Refused lines are reported. They are skipped if `skipsBad`; otherwise
// the file is not changed.
[[nodiscard]] ExitStatus RunChannelsImport(FileSystem& files, const FileChange& given, bool skipsBad,
                                           Terminal& terminal);

} // namespace mr4500x
