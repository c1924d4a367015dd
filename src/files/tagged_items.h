// The tagged items that data files consist of. All numbers are little-endian.
//
//   tag     item         payload
//   00 00   empty        none
//   02 00   integer      2 bytes, signed
//   08 00   text         2 bytes length n, then n bytes of 8-bit text
//   11 20   byte array   2 bytes number of dimensions, then for each, from the last (column) to the first (row),
//                        4 bytes element count and 4 bytes lower bound; then all elements, the row varying fastest
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace mr4500x {

enum class ItemTag : std::uint16_t { Empty = 0x0000, Integer = 0x0002, Text = 0x0008, ByteArray = 0x2011 };

inline constexpr std::size_t TagBytes = 2;
inline constexpr std::size_t IntegerItemBytes = TagBytes + 2;
inline constexpr std::size_t DimensionBytes = 8;

constexpr std::size_t TextItemBytes(std::size_t length) {
  return TagBytes + 2 + length;
}
constexpr std::size_t ArrayItemBytes(std::size_t dimensions, std::size_t elements) {
  return TagBytes + 2 + dimensions * DimensionBytes + elements;
}

struct ItemDimension {
  std::uint32_t count;
  std::uint32_t lowerBound;
  bool operator==(const ItemDimension&) const = default;
};

// The spans point into the bytes that the item was read from.
struct TaggedItem {
  ItemTag tag = ItemTag::Empty;
  std::int16_t integer = 0;
  std::span<const std::uint8_t> dimensions; // of an array, as stored
  std::span<const std::uint8_t> content;    // the characters of a text or the elements of an array

  [[nodiscard]] bool IsText(std::string_view text) const;
  [[nodiscard]] bool IsTextStartingWith(std::string_view text) const;
  [[nodiscard]] std::size_t DimensionCount() const { return dimensions.size() / DimensionBytes; }
  [[nodiscard]] ItemDimension Dimension(std::size_t index) const;
};

class ItemReader {
public:
  explicit ItemReader(std::span<const std::uint8_t> bytes) : m_rest(bytes) {}

  // nullopt if the next item is incomplete or its tag unknown. Don't call again after that.
  [[nodiscard]] std::optional<TaggedItem> Next();

private:
  [[nodiscard]] std::optional<std::span<const std::uint8_t>> Take(std::size_t count);
  [[nodiscard]] std::optional<std::uint16_t> TakeNumber();
  [[nodiscard]] std::optional<TaggedItem> TakeArray();

  std::span<const std::uint8_t> m_rest;
};

// The caller provides a buffer that is large enough.
class ItemWriter {
public:
  explicit ItemWriter(std::span<std::uint8_t> bytes) : m_rest(bytes) {}

  void PutEmpty() { PutNumber(static_cast<std::uint16_t>(ItemTag::Empty), 2); }
  void PutInteger(std::int16_t value);
  void PutText(std::string_view text);
  // Returns the elements, for the caller to fill.
  [[nodiscard]] std::span<std::uint8_t> PutArray(std::span<const ItemDimension> dimensions);

private:
  [[nodiscard]] std::span<std::uint8_t> Advance(std::size_t count);
  void PutNumber(std::uint32_t value, std::size_t bytes);

  std::span<std::uint8_t> m_rest;
};

} // namespace mr4500x
