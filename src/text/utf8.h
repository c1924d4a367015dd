// Text in UTF-8 and UTF-16, alike in every locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

// Removes the first character from a text that is not empty. A byte that begins no valid character is taken alone, as a
// value above LastCodePoint.
inline constexpr char32_t LastCodePoint = 0x10FFFF;
[[nodiscard]] char32_t TakeCodePoint(std::string_view& text);

// Whether a byte of UTF-8 begins a character, rather than going on with one.
constexpr bool BeginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

// To show a text from outside: control characters and bytes that are no UTF-8 become ".", and what follows the first
// characters becomes "...".
[[nodiscard]] std::string Printable(std::string_view text, std::size_t mostCharacters = 80);
[[nodiscard]] constexpr bool IsControl(char32_t point) {
  return point < ' ' || (point >= 0x7F && point < 0xA0);
}

// Of ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic letters; any other value stays.
[[nodiscard]] char32_t LowerCase(char32_t point);

// Without a byte order mark. nullopt for anything but valid UTF-8.
[[nodiscard]] std::optional<std::u16string> FromUtf8(std::string_view bytes);
// Half of a pair of surrogates becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::u16string_view text);

} // namespace mr4500x
