// Applies the cells of a table and returns the refused ones. A refusal is a value, so each caller can describe the
// position in its own words. The reason has the same words everywhere.
#pragma once

#include "changes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

struct GivenCell {
  std::size_t line = 0;
  std::string column, cell; // the heading, and the text as it was given
  Assignment assignment;
};

enum class Refused : std::uint8_t {
  Value, // see RefusedCell::refusal
  NoHeading,
  TooLarge,
  BrokenQuotes,
  UnknownHeading, // none of its columns is known
  UnknownColumn,
  ColumnTwice,
  ColumnMissing,
  InNoColumn,
  ChannelTwice,
  NoSuchChannel,
};

struct RefusedCell {
  std::size_t line = 0;
  std::string column, cell; // "" for a whole line
  Refused refused = Refused::Value;
  Refusal refusal{};       // why a value is refused
  std::size_t channel = 0; // 0: none
  bool operator==(const RefusedCell&) const = default;
};

// "allowed: 440 to 469.99375 MHz", "unknown column".
[[nodiscard]] std::string ReasonOf(const RefusedCell& refused);
// "3: rx_freq=500: allowed: 440 to 469.99375 MHz" for each, in the order of the lines.
[[nodiscard]] std::vector<std::string> TextsOf(std::vector<RefusedCell> refused);

// Sets the values as ApplyChanges does, all or none. Returns the refused cells.
[[nodiscard]] std::vector<RefusedCell> ApplyCells(RadioImage& image, const std::vector<GivenCell>& cells,
                                                  const FieldTexts& texts);
[[nodiscard]] std::vector<RefusedCell> ApplyCells(Configuration& configuration, const std::vector<GivenCell>& cells,
                                                  const FieldTexts& texts);

} // namespace mr4500x
