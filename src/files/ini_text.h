// The text of an INI file: finding the value of a key in a section and setting one, with every other line left as
// it is. Sections and keys are compared without regard to the case of ASCII letters. The text is UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

[[nodiscard]] char LowerAscii(char character);
// Without the blanks and tabs at both ends.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

// The value without blanks around it and without one pair of quotes; nothing where there is no such key. Where a
// section or a key stands more than once, the first place that has the key counts.
[[nodiscard]] std::optional<std::string_view> FindIniValue(std::string_view text, std::string_view section,
                                                           std::string_view key);

// Changes the line of the key, or adds one at the end of its section, or a section at the end of the text. A value
// is put between quotes when it would not be read back as it is, and its line breaks become blanks. False, with
// nothing changed, for names that an INI file can't hold.
[[nodiscard]] bool SetIniValue(std::string& text, std::string_view section, std::string_view key,
                               std::string_view value);

} // namespace mr4500x
