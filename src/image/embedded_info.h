// The embedded information: a short free text in 16-bit units, low byte first, and the radio's last programming time.
#pragma once

#include "radio_image.h"

#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::size_t MostEmbeddedCharacters = 119;

// One character a byte pair; a block as read from a radio gives 120 characters, zero characters at its end.
[[nodiscard]] std::u16string EmbeddedText(const EmbeddedInfo& block);

// The part of the text that a text box shows: all before the first zero character.
[[nodiscard]] std::u16string_view VisibleText(std::u16string_view text);

// Two bytes a character and nothing else. A text of more than 119 characters is refused: false, block unchanged.
[[nodiscard]] bool StoreEmbeddedText(EmbeddedInfo& block, std::u16string_view text);

// The stamp as "2004-11-04, 09:30:15", as UTF-8.
[[nodiscard]] std::string LastProgrammingTime(const RadioImage& image);

} // namespace mr4500x
