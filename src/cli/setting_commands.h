// The commands that read and change single settings of a data file, by their identifiers.
#pragma once

#include "file_commands.h"

#include <string>
#include <vector>

namespace mr4500x {

class FileSystem;

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

} // namespace mr4500x
