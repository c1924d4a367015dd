// The commands that read and change single settings of a data file, by their identifiers.
#pragma once

#include "changes.h"
#include "terminal.h"

#include <string>
#include <vector>

namespace mr4500x {

class FileSystem;

// Lists every setting: identifier, label, kind and what it allows, separated by tabs, or as a JSON document.
[[nodiscard]] ExitStatus RunFields(bool asJson, Terminal& terminal);

// Prints the values, one a line.
[[nodiscard]] ExitStatus RunGet(FileSystem& files, const std::string& path, const std::vector<std::string>& fields,
                                Terminal& terminal);

// Changes settings ("global.tx_tot=60s") of a data file and stores it at `output`.
[[nodiscard]] ExitStatus RunSet(FileSystem& files, const std::string& path, const std::string& output,
                                const std::vector<std::string>& changes, Terminal& terminal);

// The same from a JSON document; "-" is standard input.
[[nodiscard]] ExitStatus RunApply(FileSystem& files, const std::string& path, const std::string& output,
                                  const std::string& document, Terminal& terminal);

// Applies changes to a data file and stores it at `output`. Prints the problems that were found before and what is
// refused; if there is anything, nothing is stored.
[[nodiscard]] ExitStatus StoreChanges(FileSystem& files, const std::string& path, const std::string& output,
                                      const std::vector<Assignment>& assignments,
                                      const std::vector<std::string>& problems, Terminal& terminal);

// The text of a file, or of standard input for "-". nullopt, with a message, if it can't be read.
[[nodiscard]] std::optional<std::string> ReadTextForCommand(FileSystem& files, const std::string& path,
                                                            Terminal& terminal);

} // namespace mr4500x
