// Exact conversion between texts and integers. Frequencies are counts of units, never floating point.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mr4500x {

// The number digits / 10^decimals.
struct Decimal {
  std::int64_t digits = 0;
  int decimals = 0;
};

// Reads [blanks][sign]digits[separator digits][blanks], at most 12 digits in all; nullopt for any other text.
[[nodiscard]] std::optional<Decimal> ParseDecimal(std::string_view text, char separator);

// number x 10^scale / unit, rounded to the nearest integer, ties to even. scale is 0 to 5, unit positive.
[[nodiscard]] std::int64_t CountOfUnits(Decimal number, int scale, std::int64_t unit);

// numerator / denominator, rounded in the same way. The denominator is positive.
[[nodiscard]] std::int64_t RoundHalfEven(std::int64_t numerator, std::int64_t denominator);

// A non-negative count of 10^-decimals units, with at least `integerDigits` digits before the separator.
[[nodiscard]] std::string FormatDecimal(std::int64_t value, int integerDigits, int decimals, char separator);

// The number of a text of 1 to 9 decimal digits; nullopt for any other text.
[[nodiscard]] std::optional<int> ParseWhole(std::string_view text);

// The number after a prefix, 0 to 255 without leading zeros; nullopt for any other text.
[[nodiscard]] std::optional<std::uint8_t> ByteAfter(std::string_view text, std::string_view prefix);

} // namespace mr4500x
