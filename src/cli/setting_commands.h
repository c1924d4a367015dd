// The commands that read and change settings of a data file: by their identifiers, as JSON, and channels as CSV.
#pragma once

#include "file_commands.h"

#include <string>
#include <vector>

namespace mr4500x {

// Lists every setting with identifier, label, kind and allowed values, separated by tabs or as a JSON document. With a
// file, the limits are those for its band and mode, otherwise those of a new configuration.
[[nodiscard]] ExitStatus RunFields(FileSystem& files, const std::string& path, bool asJson, Terminal& terminal);

// Prints the values, one per line. If a word is a pattern (see field_patterns.h), or for all settings if there are no
// words, prints lines FIELD=VALUE.
[[nodiscard]] ExitStatus RunGet(FileSystem& files, const std::string& path, const std::vector<std::string>& fields,
                                bool asJson, Terminal& terminal);

// Changes settings ("global.tx_tot=60s", "channels.*.in_use=true") of a data file. The file `given.input` may have
// further changes, one per line.
[[nodiscard]] ExitStatus RunSet(FileSystem& files, const FileChange& given, const std::vector<std::string>& changes,
                                Terminal& terminal);

// Changes settings of a data file from the JSON document `given.input`.
[[nodiscard]] ExitStatus RunApply(FileSystem& files, const FileChange& given, Terminal& terminal);

// Writes the channels as CSV, to standard output for "-".
[[nodiscard]] ExitStatus RunChannelsExport(FileSystem& files, const std::string& path, const std::string& csv,
                                           Terminal& terminal);

// Imports the channels of the list `given.input`. Refused lines are reported. They are skipped if `skipsBad`; otherwise
// the file is not changed.
[[nodiscard]] ExitStatus RunChannelsImport(FileSystem& files, const FileChange& given, bool skipsBad,
                                           Terminal& terminal);

} // namespace mr4500x
