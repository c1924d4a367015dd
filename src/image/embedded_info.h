// The embedded information, a short text in 16-bit units with the low byte first, and the last programming time.
#pragma once

#include "radio_image.h"

#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::size_t MostEmbeddedCharacters = 119;

// One character per byte pair. A block read from a radio gives 120 characters, padded with zero characters.
[[nodiscard]] std::u16string EmbeddedText(const EmbeddedInfo& block);

// What a text box shows: everything before the first zero character.
[[nodiscard]] std::u16string_view VisibleText(std::u16string_view text);

// False, with the block unchanged, for a text of more than 119 characters.
[[nodiscard]] bool StoreEmbeddedText(EmbeddedInfo& block, std::u16string_view text);

// The write stamp in the form "2004-11-04, 09:30:15", in UTF-8.
[[nodiscard]] std::string LastProgrammingTime(const RadioImage& image);

} // namespace mr4500x
