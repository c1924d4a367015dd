#include "text.h"

#include <algorithm>
#include <cstdio>

namespace mr4500x {
namespace {

constexpr std::string_view LowerHexSymbols = "0123456789abcdef";
constexpr std::size_t HexTextSize = 16;

} // namespace

std::string_view Trimmed(std::string_view text, std::string_view blanks) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return TrimmedAtEnd(text, blanks);
}

std::string_view TrimmedAtEnd(std::string_view text, std::string_view blanks) {
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string Lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) { return Lower(c); });
  return text;
}

std::string HexText(std::uint64_t number) {
  std::string text(HexTextSize, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number >>= 4)
    *digit = LowerHexSymbols[number & 0xF];
  return text;
}

bool IsHexText(std::string_view text) {
  return text.size() == HexTextSize && text.find_first_not_of(LowerHexSymbols) == std::string_view::npos;
}

std::string TimestampText(const LocalTime& time) {
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day, time.hour,
                time.minute, time.second);
  return text.data();
}

} // namespace mr4500x
