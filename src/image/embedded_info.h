// The embedded information (a short text in 16-bit units, low byte first), its length limit in the editor, and the last
// programming time.
#pragma once

#include "radio_image.h"

#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::size_t MostEmbeddedCharacters = 119; // 16-bit units; a line end counts as two

// One character per byte pair. A block read from a radio gives 120 characters, padded with zero characters.
[[nodiscard]] std::u16string EmbeddedText(const EmbeddedInfo& block);

// The text up to the first zero character, as a text box shows it.
[[nodiscard]] std::u16string_view VisibleText(std::u16string_view text);

// False, with the block unchanged, for a text of more than 119 characters.
[[nodiscard]] bool StoreEmbeddedText(EmbeddedInfo& block, std::u16string_view text);

// Converts the text of a box to its stored form. Each line end, one character in a box, becomes carriage return and
// line feed. Zero characters are removed, because they would end the text.
[[nodiscard]] std::u16string TextToStore(std::u16string_view shown);
// The length that a stored text has in the box, where a line end is one character.
[[nodiscard]] std::size_t ShownLength(std::u16string_view stored);

struct EmbeddedEntry {
  std::u16string text; // in its stored form
  std::size_t caret = 0;
  bool operator==(const EmbeddedEntry&) const = default;
};
// Shortens a text of more than 119 units: removes the character before the caret, then everything beyond the limit.
// Surrogate pairs and line ends are removed as a whole. Returns false, and changes nothing, for a text within the
// limit.
bool CutToTopSize(EmbeddedEntry& entry);

// Whether the position is between the halves of a surrogate pair or of a line end.
[[nodiscard]] bool IsInsideCharacter(std::u16string_view text, std::size_t position);

// From UTF-8; every line break becomes carriage return and line feed. nullopt if the text is not UTF-8.
[[nodiscard]] std::optional<std::u16string> InfoFromArgument(std::string_view argument);

// The text for a file: UTF-8, with a line feed after each line. InfoFromKept reverses it; nullopt if it is not UTF-8.
[[nodiscard]] std::string InfoToKeep(std::u16string_view text);
[[nodiscard]] std::optional<std::u16string> InfoFromKept(std::string_view content);

// The write stamp in the form "2004-11-04, 09:30:15", in UTF-8.
[[nodiscard]] std::string LastProgrammingTime(const RadioImage& image);

} // namespace mr4500x
