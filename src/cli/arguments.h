// Interprets a command's arguments, and formats texts for the terminal.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// Whether the name has the ending of a data file, in any case.
[[nodiscard]] bool HasDataFileEnding(const std::string& path);

// The name that was probably meant, with at most two missing, wrong or extra letters. "" if there is none.
[[nodiscard]] std::string NearestOf(std::string_view word, const std::vector<std::string>& names);

// The text for printing, as a text box shows it, with plain line feeds. Other control characters except tabs become
// ".".
[[nodiscard]] std::string InfoToPrint(std::u16string_view text);

} // namespace mr4500x
