// A field of a block is a group of bits in one byte. A codec describes its block as a table of fields and uses the same
// table to read and to write, so the two can't drift apart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace mr4500x {

struct BlockField {
  std::uint8_t byte;
  std::uint8_t mask;
  std::uint8_t shift; // position of the lowest bit
};

constexpr std::uint8_t ReadField(std::span<const std::uint8_t> block, BlockField field) {
  return static_cast<std::uint8_t>((block[field.byte] & field.mask) >> field.shift);
}

// Ignores value bits that do not fit the field. Keeps the other bits of the byte.
constexpr void WriteField(std::span<std::uint8_t> block, BlockField field, unsigned value) {
  block[field.byte] =
      static_cast<std::uint8_t>((block[field.byte] & ~field.mask) | ((value << field.shift) & field.mask));
}

// For static_assert: every field lies in the block, every mask starts at its shift, no two fields share a bit.
constexpr bool FieldsAreSound(std::span<const BlockField> fields, std::size_t blockBytes) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].byte >= blockBytes || ((fields[i].mask >> fields[i].shift) & 1) == 0) return false;
    if ((fields[i].mask & ((1U << fields[i].shift) - 1)) != 0) return false;
    for (std::size_t j = 0; j < i; ++j)
      if (fields[i].byte == fields[j].byte && (fields[i].mask & fields[j].mask) != 0) return false;
  }
  return true;
}

} // namespace mr4500x
