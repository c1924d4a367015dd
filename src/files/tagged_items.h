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
#include <vector>

namespace mr4500x {

enum class ItemTag : std::uint16_t { Empty = 0x0000, Integer = 0x0002, Text = 0x0008, ByteArray = 0x2011 };

// The spans point into the bytes that the item was read from.
struct TaggedItem {
  ItemTag tag = ItemTag::Empty;
  std::int16_t integer = 0;
  std::span<const std::uint8_t> dimensions{}; // the stored dimensions of an array
  std::span<const std::uint8_t> elements{};   // the elements of an array
  std::string_view text{};
};

class ItemReader {
public:
  explicit ItemReader(std::span<const std::uint8_t> bytes) : m_rest(bytes) {}

  // nullopt if the next item is incomplete or its tag unknown. Don't call again after that.
  [[nodiscard]] std::optional<TaggedItem> Next();

  [[nodiscard]] int Begun() const { return m_begun; }
  [[nodiscard]] bool RanOut() const { return m_ranOut; } // the bytes ended within the last item

private:
  [[nodiscard]] std::optional<std::span<const std::uint8_t>> Take(std::size_t count);
  [[nodiscard]] std::optional<std::uint16_t> TakeNumber();
  [[nodiscard]] std::optional<TaggedItem> TakeArray();

  std::span<const std::uint8_t> m_rest;
  int m_begun = 0;
  bool m_ranOut = false;
};

using ItemBytes = std::vector<std::uint8_t>;

void AppendNumber(ItemBytes& file, std::uint32_t value, std::size_t bytes);
void AppendText(ItemBytes& file, std::string_view text);
// The stored form of an array's dimensions, with the lower bound 0. One of a single row has one dimension.
void AppendDimensions(ItemBytes& file, std::uint32_t rows, std::uint32_t columns);

} // namespace mr4500x
