#include "utf8.h"

#include <array>
#include <bit>
#include <cstdint>

namespace mr4500x {

char32_t TakeCodePoint(std::string_view& text) {
  constexpr std::array<char32_t, 5> Least = {0, 0, 0x80, 0x800, 0x10000}; // indexed by the number of bytes
  const auto first = static_cast<std::uint8_t>(text.front());
  const int ones = std::countl_one(first); // leading one bits: the number of bytes of the character, or 0 for ASCII
  const std::size_t length = ones == 0 ? 1 : static_cast<std::size_t>(ones);
  bool isSound = ones != 1 && ones <= 4 && length <= text.size();
  char32_t point = ones == 0 ? first : first & (0x7FU >> ones);
  for (std::size_t i = 1; isSound && i < length; ++i) {
    isSound = !BeginsCharacter(text[i]);
    point = point << 6 | (static_cast<std::uint8_t>(text[i]) & 0x3FU);
  }
  isSound = isSound && point >= Least[length] && point <= LastCodePoint && (point < 0xD800 || point >= 0xE000);
  text.remove_prefix(isSound ? length : 1);
  return isSound ? point : LastCodePoint + 1 + first;
}

std::string Printable(std::string_view text, std::size_t mostCharacters) {
  std::string shown;
  for (std::size_t count = 0; !text.empty(); ++count) {
    if (count == mostCharacters) return shown + "...";
    const std::string_view before = text;
    const char32_t point = TakeCodePoint(text);
    shown += IsControl(point) || point > LastCodePoint ? "." : before.substr(0, before.size() - text.size());
  }
  return shown;
}

char32_t LowerCase(char32_t point) {
  struct Range {
    char32_t first, last, step, distance; // every step-th code point is upper case
  };
  // clang-format off
  constexpr std::array<Range, 10> Capitals = {{
      {'A',    'Z',    1, 32}, // ASCII
      {0x00C0, 0x00D6, 1, 32}, {0x00D8, 0x00DE, 1, 32},                          // Latin-1
      {0x0100, 0x0136, 2, 1},  {0x0139, 0x0147, 2, 1},  {0x014A, 0x0176, 2, 1},  // Latin Extended-A
      {0x0179, 0x017D, 2, 1},
      {0x0391, 0x03A9, 1, 32},                                                   // Greek
      {0x0400, 0x040F, 1, 80}, {0x0410, 0x042F, 1, 32},                          // Cyrillic
  }};
  // clang-format on
  for (const Range& range : Capitals)
    if (point >= range.first && point <= range.last && (point - range.first) % range.step == 0)
      return point + range.distance;
  return point;
}

std::optional<std::u16string> FromUtf8(std::string_view bytes) {
  if (bytes.starts_with(ByteOrderMark)) bytes.remove_prefix(ByteOrderMark.size());
  std::u16string text;
  while (!bytes.empty()) {
    const char32_t c = TakeCodePoint(bytes);
    if (c > LastCodePoint) return std::nullopt;
    if (c >= 0x10000) text += static_cast<char16_t>(0xD7C0 + (c >> 10));
    text += static_cast<char16_t>(c < 0x10000 ? c : 0xDC00 | (c & 0x3FF));
  }
  return text;
}

std::string DecodedText(std::string_view bytes) {
  const bool isLittleEndian = bytes.starts_with("\xFF\xFE");
  if (!isLittleEndian && !bytes.starts_with("\xFE\xFF"))
    return std::string(bytes.substr(bytes.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0));
  std::u16string text;
  for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[isLittleEndian ? i : i + 1]);
    const auto high = static_cast<unsigned char>(bytes[isLittleEndian ? i + 1 : i]);
    text += static_cast<char16_t>(high << 8 | low);
  }
  return ToUtf8(text);
}

std::string ToUtf8(std::u16string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    const bool isPair = c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
    if (isPair)
      c = 0x10000 + ((c & 0x3FF) << 10) + (text[++i] & 0x3FFU);
    else if (c >= 0xD800 && c < 0xE000)
      c = 0xFFFD;
    const int more = c < 0x80 ? 0 : c < 0x800 ? 1 : c < 0x10000 ? 2 : 3; // bytes after the first
    bytes += static_cast<char>(more == 0 ? c : (0xFF00 >> (more + 1) & 0xFF) | c >> 6 * more);
    for (int rest = more - 1; rest >= 0; --rest)
      bytes += static_cast<char>(0x80 | (c >> 6 * rest & 0x3F));
  }
  return bytes;
}

} // namespace mr4500x
