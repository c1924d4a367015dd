// Embedded information as UTF-8 on the command line and as 16-bit units in the radio.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// Every line break becomes carriage return and line feed. nullopt if the argument is not UTF-8.
[[nodiscard]] std::optional<std::u16string> InfoFromArgument(std::string_view argument);

// What a text box shows, with plain line feeds. Other control characters except tabs become ".".
[[nodiscard]] std::string InfoToPrint(std::u16string_view text);

} // namespace mr4500x
