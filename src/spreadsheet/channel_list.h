// The channels as a table: written with the keys of their settings as headings, read with these or the window's
// captions, or from the list that many radio programs exchange.
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
  bool hasHeading = false; // else only a pasted text has rows
  std::vector<ChannelRow> rows;
  std::vector<RefusedCell> bad;     // their lines are not among the rows
  std::vector<std::string> leftOut; // columns that a radio has nothing for
};
// Each line names its channel or, with `first`, they are for the channels from that one (1 to 16) on. Such a text may
// go without a heading: its columns are those of the window then, with or without "CH No.". A cell that is empty leaves
// its setting as it is, an empty line its channel. A line with a frequency puts its channel in use, unless the table
// has a column for that.
[[nodiscard]] ChannelList ReadChannelList(std::string_view bytes, const FieldTexts& texts,
                                          std::optional<std::size_t> first = std::nullopt);
[[nodiscard]] std::vector<GivenCell> CellsOf(const std::vector<ChannelRow>& rows);

// The exchanged list: its heading has the columns Location and Frequency.
[[nodiscard]] bool IsExchangeList(const std::vector<std::string>& columns);
[[nodiscard]] bool IsExchangeColumn(std::string_view column); // with a meaning for a radio
// Appends a line, or what is wrong with it.
void ReadExchangeLine(const std::vector<std::string>& columns, const CsvRow& row, std::size_t channel,
                      const FieldTexts& texts, ChannelList& list);

} // namespace mr4500x
