// The commands that read and change single settings of a data file, by their identifiers.
#pragma once

#include "file_commands.h"

#include <string>
#include <vector>

namespace mr4500x {

class FileSystem;

// Lists every setting: identifier, label, kind and what it allows, separated by tabs, or as a JSON document. Without a
// file in a new configuration, else in the file's band and mode.
[[nodiscard]] ExitStatus RunFields(FileSystem& files, const std::string& path, bool asJson, Terminal& terminal);

// Prints the values, one a line; as lines FIELD=VALUE where a word is a pattern (see field_patterns.h), or for all
// settings if there are no words.
[[nodiscard]] ExitStatus RunGet(FileSystem& files, const std::string& path, const std::vector<std::string>& fields,
                                bool asJson, Terminal& terminal);

// Changes settings ("global.tx_tot=60s", "channels.*.in_use=true") of a data file. More of them, one a line, can be in
// the file `given.input`.
[[nodiscard]] ExitStatus RunSet(FileSystem& files, const FileChange& given, const std::vector<std::string>& changes,
                                Terminal& terminal);

// The same from the JSON document `given.input`.
[[nodiscard]] ExitStatus RunApply(FileSystem& files, const FileChange& given, Terminal& terminal);

} // namespace mr4500x
