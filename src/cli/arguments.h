// What a command's arguments mean, and texts for the terminal.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// Whether a file of that name is a data file: by its ending, in capitals or not.
[[nodiscard]] bool HasDataFileEnding(const std::string& path);

// The name that may have been meant: two letters at most are missing, wrong or too many. "" if there is none.
[[nodiscard]] std::string NearestOf(std::string_view word, const std::vector<std::string>& names);

// To print: what a text box shows, with plain line feeds. Other control characters except tabs become ".".
[[nodiscard]] std::string InfoToPrint(std::u16string_view text);

} // namespace mr4500x
