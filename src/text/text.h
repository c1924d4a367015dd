// ASCII texts, independent of the locale: digits, blanks, case, hexadecimal numbers and the time stamp. utf8.h handles
// the rest of Unicode.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "local_time.h"

namespace mr4500x {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

inline constexpr std::string_view Blanks = " \t";
// Trim blanks at both ends, or only at the end.
[[nodiscard]] std::string_view Trimmed(std::string_view text, std::string_view blanks = Blanks);
[[nodiscard]] std::string_view TrimmedAtEnd(std::string_view text, std::string_view blanks = Blanks);

constexpr char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
[[nodiscard]] std::string Lower(std::string text);

inline constexpr std::string_view HexSymbols = "0123456789ABCDEF";
constexpr char HexDigit(int nibble) {
  return HexSymbols[nibble & 0x0F];
}
// Reads exactly `digits` hexadecimal digits after a prefix. nullopt for any other text.
template<std::size_t Count>
std::optional<std::array<std::uint8_t, Count>> HexDigitsAfter(std::string_view text, std::string_view prefix) {
  if (!text.starts_with(prefix) || text.size() != prefix.size() + Count) return std::nullopt;
  std::array<std::uint8_t, Count> digits{};
  for (std::size_t i = 0; i < Count; ++i) {
    const std::size_t digit = HexSymbols.find(text[prefix.size() + i]);
    if (digit == std::string_view::npos) return std::nullopt;
    digits[i] = static_cast<std::uint8_t>(digit);
  }
  return digits;
}

// A number as 16 lower-case hexadecimal digits, for file names, and whether a text is such a number.
[[nodiscard]] std::string HexText(std::uint64_t number);
[[nodiscard]] bool IsHexText(std::string_view text);

// "2026-11-25 04:10:33"
[[nodiscard]] std::string TimestampText(const LocalTime& time);

} // namespace mr4500x
