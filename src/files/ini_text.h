// Finds and sets values in the UTF-8 text of an INI file. All other lines stay as they are. Section and key names
// ignore the case of ASCII letters.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

[[nodiscard]] char LowerAscii(char character);
// Trims blanks and tabs at both ends.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

// The value without surrounding blanks and one pair of quotes; nullopt if there is no such key. If a section or key
// appears more than once, the first one found counts.
[[nodiscard]] std::optional<std::string_view> FindIniValue(std::string_view text, std::string_view section,
                                                           std::string_view key);

// Changes the key's line, or adds it at the end of its section, or adds the section at the end of the text. Quotes a
// value that would not be read back as it is; line breaks become blanks. False, with no change, for names that an INI
// file can't hold.
[[nodiscard]] bool SetIniValue(std::string& text, std::string_view section, std::string_view key,
                               std::string_view value);

} // namespace mr4500x
