// Texts in UTF-8 and UTF-16, independent of the locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

// Removes and returns the first character of a non-empty text. A byte that does not begin a valid character is returned
// alone, as a value above LastCodePoint.
inline constexpr char32_t LastCodePoint = 0x10FFFF;
[[nodiscard]] char32_t TakeCodePoint(std::string_view& text);

// Whether a byte of UTF-8 is the first of a character.
constexpr bool BeginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

// Makes a text from outside printable: control characters, those for the text's direction, and invalid bytes become
// ".", and a long text is shortened with "...".
[[nodiscard]] std::string Printable(std::string_view text, std::size_t mostCharacters = 80);
[[nodiscard]] constexpr bool IsControl(char32_t point) {
  return point < ' ' || (point >= 0x7F && point < 0xA0) || (point >= 0x202A && point <= 0x202E) ||
         (point >= 0x2066 && point <= 0x2069); // these would turn the text beside them
}

// Converts ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic letters. Any other value is unchanged.
[[nodiscard]] char32_t LowerCase(char32_t point);

// Without a byte order mark. nullopt for anything but valid UTF-8.
[[nodiscard]] std::optional<std::u16string> FromUtf8(std::string_view bytes);
// Converts the content of a text file to UTF-8 without a byte order mark. With one, the file may be in UTF-16, as some
// shells and spreadsheets write it.
[[nodiscard]] std::string DecodedText(std::string_view bytes);
// A lone surrogate becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::u16string_view text);

} // namespace mr4500x
