// Embedded information between the command line's UTF-8 and the radio's 16-bit units.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// Line breaks of any kind become carriage return and line feed. Nothing for bytes that are no UTF-8.
[[nodiscard]] std::optional<std::u16string> InfoFromArgument(std::string_view argument);

// What a text box would show of the text, with plain line feeds; other control characters read as ".".
[[nodiscard]] std::string InfoToPrint(std::u16string_view text);

} // namespace mr4500x
