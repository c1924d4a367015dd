// A nibble as a hexadecimal digit.
#pragma once

#include <cstdint>
#include <optional>

namespace mr4500x {

constexpr char HexDigit(int nibble) {
  return "0123456789ABCDEF"[nibble & 0x0F];
}

constexpr std::optional<std::uint8_t> HexValue(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<std::uint8_t>(digit - '0');
  if (digit >= 'A' && digit <= 'F') return static_cast<std::uint8_t>(digit - 'A' + 10);
  return std::nullopt;
}

} // namespace mr4500x
