// The channels as a table. It is written with the keys of the settings as headings, and read with these, with the
// window's captions, or in the list format that many radio programs exchange.
#pragma once

#include "csv.h"
#include "given_cells.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// A heading and a line for every channel.
[[nodiscard]] std::string ChannelsCsv(const Configuration& configuration);

struct ChannelRow {
  std::size_t line = 0;
  std::size_t channel = 0; // 1 to 16
  std::vector<GivenCell> cells;
};
struct ChannelList {
  bool hasHeading = false; // without a heading only a pasted text has rows
  std::vector<ChannelRow> rows;
  std::vector<RefusedCell> bad;     // their lines are not among the rows
  std::vector<std::string> leftOut; // columns that are ignored: the radio has no such setting
};
// Each line names its channel. With `first` (1 to 16) the lines are for the channels from that one on, and the heading
// may be missing: the columns are then those of the window, with or without "CH No.". An empty cell leaves its setting
// unchanged, an empty line its channel. A line with a frequency puts its channel in use, unless the table has a column
// for that.
[[nodiscard]] ChannelList ReadChannelList(std::string_view bytes, const FieldTexts& texts,
                                          std::optional<std::size_t> first = std::nullopt);
[[nodiscard]] std::vector<GivenCell> CellsOf(const std::vector<ChannelRow>& rows);

// The exchange format, whose heading has the columns Location and Frequency.
[[nodiscard]] bool IsExchangeList(const std::vector<std::string>& columns);
[[nodiscard]] bool IsExchangeColumn(std::string_view column); // for a setting of the radio
// Appends a line, or the reason why it is refused.
void ReadExchangeLine(const std::vector<std::string>& columns, const CsvRow& row, std::size_t channel,
                      const FieldTexts& texts, ChannelList& list);

} // namespace mr4500x
