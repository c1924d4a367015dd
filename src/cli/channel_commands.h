// The commands that exchange the channels of a data file with spreadsheets and other programs.
#pragma once

#include "file_commands.h"

#include <string>

namespace mr4500x {

class FileSystem;

// Writes the channels as CSV; to standard output for "-".
[[nodiscard]] ExitStatus RunChannelsExport(FileSystem& files, const std::string& path, const std::string& csv,
                                           Terminal& terminal);

// Takes the channels of the list `given.input`. A bad line is reported, and left out if `skipsBad`; else one is enough
// to leave the file as it was.
[[nodiscard]] ExitStatus RunChannelsImport(FileSystem& files, const FileChange& given, bool skipsBad,
                                           Terminal& terminal);

} // namespace mr4500x
