#include "tagged_items.h"

#include <algorithm>

namespace mr4500x {
namespace {

std::uint32_t NumberAt(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i)
    value |= std::uint32_t{bytes[at + i]} << (8 * i);
  return value;
}

bool SameText(std::span<const std::uint8_t> bytes, std::string_view text) {
  return std::equal(bytes.begin(), bytes.end(), text.begin(), text.end(),
                    [](std::uint8_t byte, char character) { return byte == static_cast<std::uint8_t>(character); });
}

} // namespace

bool TaggedItem::IsText(std::string_view text) const {
  return tag == ItemTag::Text && SameText(content, text);
}

bool TaggedItem::IsTextStartingWith(std::string_view text) const {
  return tag == ItemTag::Text && content.size() >= text.size() && SameText(content.first(text.size()), text);
}

ItemDimension TaggedItem::Dimension(std::size_t index) const {
  return {NumberAt(dimensions, index * DimensionBytes, 4), NumberAt(dimensions, index * DimensionBytes + 4, 4)};
}

std::optional<TaggedItem> ItemReader::Next() {
  const auto tag = TakeNumber();
  if (!tag) return std::nullopt;
  TaggedItem item{static_cast<ItemTag>(*tag), 0, {}, {}};
  switch (item.tag) {
  case ItemTag::Empty:
    return item;
  case ItemTag::Integer: {
    const auto value = TakeNumber();
    if (!value) return std::nullopt;
    item.integer = static_cast<std::int16_t>(*value);
    return item;
  }
  case ItemTag::Text: {
    const auto length = TakeNumber();
    const auto content = length ? Take(*length) : std::nullopt;
    if (!content) return std::nullopt;
    item.content = *content;
    return item;
  }
  case ItemTag::ByteArray:
    return TakeArray();
  }
  return std::nullopt;
}

std::optional<TaggedItem> ItemReader::TakeArray() {
  const auto number = TakeNumber();
  const auto dimensions = number ? Take(*number * DimensionBytes) : std::nullopt;
  if (!dimensions || dimensions->empty()) return std::nullopt;
  TaggedItem item{ItemTag::ByteArray, 0, *dimensions, {}};
  // The counts may be anything: a product beyond the remaining bytes is capped, so that it cannot overflow.
  const std::uint64_t tooMany = std::uint64_t{m_rest.size()} + 1;
  std::uint64_t elements = 1;
  for (std::size_t i = 0; i < item.DimensionCount(); ++i) {
    const std::uint64_t count = item.Dimension(i).count;
    elements = count != 0 && elements > tooMany / count ? tooMany : std::min(elements * count, tooMany);
  }
  const auto content = Take(static_cast<std::size_t>(elements));
  if (!content) return std::nullopt;
  item.content = *content;
  return item;
}

std::optional<std::span<const std::uint8_t>> ItemReader::Take(std::size_t count) {
  if (count > m_rest.size()) return std::nullopt;
  const auto taken = m_rest.first(count);
  m_rest = m_rest.subspan(count);
  return taken;
}

std::optional<std::uint16_t> ItemReader::TakeNumber() {
  const auto bytes = Take(2);
  if (!bytes) return std::nullopt;
  return static_cast<std::uint16_t>(NumberAt(*bytes, 0, 2));
}

void ItemWriter::PutInteger(std::int16_t value) {
  PutNumber(static_cast<std::uint16_t>(ItemTag::Integer), 2);
  PutNumber(static_cast<std::uint16_t>(value), 2);
}

void ItemWriter::PutText(std::string_view text) {
  PutNumber(static_cast<std::uint16_t>(ItemTag::Text), 2);
  PutNumber(static_cast<std::uint16_t>(text.size()), 2);
  std::transform(text.begin(), text.end(), Advance(text.size()).begin(),
                 [](char character) { return static_cast<std::uint8_t>(character); });
}

std::span<std::uint8_t> ItemWriter::PutArray(std::span<const ItemDimension> dimensions) {
  PutNumber(static_cast<std::uint16_t>(ItemTag::ByteArray), 2);
  PutNumber(static_cast<std::uint16_t>(dimensions.size()), 2);
  std::size_t elements = 1;
  for (const ItemDimension& dimension : dimensions) {
    PutNumber(dimension.count, 4);
    PutNumber(dimension.lowerBound, 4);
    elements *= dimension.count;
  }
  return Advance(elements);
}

std::span<std::uint8_t> ItemWriter::Advance(std::size_t count) {
  const auto place = m_rest.first(count);
  m_rest = m_rest.subspan(count);
  return place;
}

void ItemWriter::PutNumber(std::uint32_t value, std::size_t bytes) {
  const auto place = Advance(bytes);
  for (std::size_t i = 0; i < bytes; ++i)
    place[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

} // namespace mr4500x
