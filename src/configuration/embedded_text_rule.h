// How much text the box of the embedded information takes. The limit counts 16-bit units; a line end is carriage return
// and line feed and counts as two.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mr4500x {

struct EmbeddedEntry {
  std::u16string text;
  std::size_t caret = 0; // in units
  bool operator==(const EmbeddedEntry&) const = default;
};

// The text of a box as it is stored: every kind of line end becomes carriage return and line feed, and zero characters,
// which would end the text, are left out.
[[nodiscard]] std::u16string TextToStore(std::u16string_view shown);

// The length of a stored text in the box, where a line end is one character.
[[nodiscard]] std::size_t ShownLength(std::u16string_view stored);

// Cuts a text of more than 119 units: removes the character before the caret, then whatever is still beyond the limit.
// Removes a surrogate pair or line end as a whole. False, with no change, for a text within the limit.
bool CutToTopSize(EmbeddedEntry& entry);

} // namespace mr4500x
