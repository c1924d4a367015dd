#include "decimal.h"

#include "text.h"

#include <algorithm>
#include <array>

namespace mr4500x {
namespace {

constexpr int MostParsedDigits = 12; // 10^12 x 10^5 stays within 64 bits

std::int64_t PowerOfTen(int exponent) {
  return exponent == 0 ? 1 : 10 * PowerOfTen(exponent - 1);
}

} // namespace

std::optional<Decimal> ParseDecimal(std::string_view text, char separator) {
  text = Trimmed(text, " ");
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  Decimal number;
  int digitCount = 0;
  bool fraction = false;
  for (const char c : text) {
    if (c == separator && !fraction) {
      fraction = true;
      continue;
    }
    if (!IsDigit(c) || ++digitCount > MostParsedDigits) return std::nullopt;
    number.digits = number.digits * 10 + (c - '0');
    if (fraction) ++number.decimals;
  }
  if (digitCount == 0) return std::nullopt;
  if (negative) number.digits = -number.digits;
  return number;
}

std::int64_t RoundHalfEven(std::int64_t numerator, std::int64_t denominator) {
  std::int64_t quotient = numerator / denominator;
  std::int64_t rest = numerator % denominator;
  if (rest < 0) {
    rest += denominator;
    --quotient;
  }
  const std::int64_t twice = 2 * rest;
  const bool up = twice > denominator || (twice == denominator && quotient % 2 != 0);
  return up ? quotient + 1 : quotient;
}

std::int64_t CountOfUnits(Decimal number, int scale, std::int64_t unit) {
  if (number.decimals <= scale) return RoundHalfEven(number.digits * PowerOfTen(scale - number.decimals), unit);
  return RoundHalfEven(number.digits, unit * PowerOfTen(number.decimals - scale));
}

std::string FormatDecimal(std::int64_t value, int integerDigits, int decimals, char separator) {
  std::array<char, 32> buffer{};
  std::size_t at = buffer.size();
  const auto put = [&](char c) { buffer[--at] = c; };
  for (int i = 0; i < decimals; ++i, value /= 10)
    put(static_cast<char>('0' + value % 10));
  if (decimals > 0) put(separator);
  for (int i = 0; i < integerDigits || value > 0; ++i, value /= 10)
    put(static_cast<char>('0' + value % 10));
  return {buffer.data() + at, buffer.size() - at};
}

std::optional<int> ParseWhole(std::string_view text) {
  if (text.empty() || text.size() > 9 || !std::all_of(text.begin(), text.end(), IsDigit)) return std::nullopt;
  int number = 0;
  for (const char c : text)
    number = number * 10 + (c - '0');
  return number;
}

std::optional<std::uint8_t> ByteAfter(std::string_view text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return std::nullopt;
  const std::string_view digits = text.substr(prefix.size());
  const std::optional<int> number = ParseWhole(digits);
  if (!number || *number > 0xFF || (digits.front() == '0' && digits.size() > 1)) return std::nullopt;
  return static_cast<std::uint8_t>(*number);
}

} // namespace mr4500x
