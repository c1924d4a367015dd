// The rule of the embedded information's text box, without the box: how much text it takes. Texts are in 16-bit units,
// which is how the limit counts them; a line end is carriage return and line feed and counts as two.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mr4500x {

struct EmbeddedEntry {
  std::u16string text;
  std::size_t caret = 0; // units before it
  bool operator==(const EmbeddedEntry&) const = default;
};

// The text of a box, which has one character for a line end, as it is stored. Every kind of line end becomes carriage
// return and line feed; zero characters, which would end the text for its readers, are left out.
[[nodiscard]] std::u16string TextToStore(std::u16string_view shown);

// The number of characters that a box has for so much of a stored text.
[[nodiscard]] std::size_t ShownLength(std::u16string_view stored);

// Brings a text of over 119 units back to the limit: the character before the caret goes, whichever that is, and what
// then lies beyond the limit. Neither a surrogate pair nor a line end is cut in half; it goes as a whole. False for a
// text within the limit, which stays as it is.
bool CutToTopSize(EmbeddedEntry& entry);

} // namespace mr4500x
