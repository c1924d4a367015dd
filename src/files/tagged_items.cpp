#include "tagged_items.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::size_t DimensionBytes = 8;

std::uint32_t NumberAt(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i)
    value |= std::uint32_t{bytes[at + i]} << (8 * i);
  return value;
}

} // namespace

std::optional<TaggedItem> ItemReader::Next() {
  ++m_begun;
  const auto tag = TakeNumber();
  if (!tag) return std::nullopt;
  TaggedItem item{.tag = static_cast<ItemTag>(*tag)};
  if (item.tag == ItemTag::Empty) return item;
  if (item.tag == ItemTag::ByteArray) return TakeArray();
  const auto number = TakeNumber();
  if (!number) return std::nullopt;
  if (item.tag == ItemTag::Integer) {
    item.integer = static_cast<std::int16_t>(*number);
    return item;
  }
  const auto characters = item.tag == ItemTag::Text ? Take(*number) : std::nullopt;
  if (!characters) return std::nullopt;
  item.text = {reinterpret_cast<const char*>(characters->data()), characters->size()};
  return item;
}

std::optional<TaggedItem> ItemReader::TakeArray() {
  const auto number = TakeNumber();
  const auto dimensions = number ? Take(*number * DimensionBytes) : std::nullopt;
  if (!dimensions || dimensions->empty()) return std::nullopt;
  // The counts may have any value. A product beyond the remaining bytes is capped, so it can't overflow.
  const std::uint64_t tooMany = std::uint64_t{m_rest.size()} + 1;
  std::uint64_t elements = 1;
  for (std::size_t at = 0; at < dimensions->size(); at += DimensionBytes) {
    const std::uint64_t count = NumberAt(*dimensions, at, 4);
    elements = count != 0 && elements > tooMany / count ? tooMany : std::min(elements * count, tooMany);
  }
  const auto content = Take(static_cast<std::size_t>(elements));
  if (!content) return std::nullopt;
  return TaggedItem{.tag = ItemTag::ByteArray, .dimensions = *dimensions, .elements = *content};
}

std::optional<std::span<const std::uint8_t>> ItemReader::Take(std::size_t count) {
  m_ranOut = count > m_rest.size();
  if (m_ranOut) return std::nullopt;
  const auto taken = m_rest.first(count);
  m_rest = m_rest.subspan(count);
  return taken;
}

std::optional<std::uint16_t> ItemReader::TakeNumber() {
  const auto bytes = Take(2);
  return bytes ? std::optional(static_cast<std::uint16_t>(NumberAt(*bytes, 0, 2))) : std::nullopt;
}

void AppendNumber(ItemBytes& file, std::uint32_t value, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i)
    file.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void AppendText(ItemBytes& file, std::string_view text) {
  AppendNumber(file, static_cast<std::uint16_t>(ItemTag::Text), 2);
  AppendNumber(file, static_cast<std::uint32_t>(text.size()), 2);
  file.insert(file.end(), text.begin(), text.end());
}

void AppendDimensions(ItemBytes& file, std::uint32_t rows, std::uint32_t columns) {
  AppendNumber(file, columns, 4);
  AppendNumber(file, 0, 4);
  if (rows == 1) return;
  AppendNumber(file, rows, 4);
  AppendNumber(file, 0, 4);
}

} // namespace mr4500x
