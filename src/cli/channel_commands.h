// The commands that exchange the channels of a data file with spreadsheets and other programs.
#pragma once

#include "terminal.h"

#include <string>

namespace mr4500x {

class FileSystem;

// Writes the channels as CSV; to standard output for "-".
[[nodiscard]] ExitStatus RunChannelsExport(FileSystem& files, const std::string& path, const std::string& csv,
                                           Terminal& terminal);

struct ChannelsImport {
  std::string path, csv, output; // the data file, the list or "-", and where the changed data goes
  bool skipsBad = false;         // bad lines are told and left out; else one is enough to leave the file as it is
};
[[nodiscard]] ExitStatus RunChannelsImport(FileSystem& files, const ChannelsImport& given, Terminal& terminal);

} // namespace mr4500x
