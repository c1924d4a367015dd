// The channels as a table: written with the identifiers of their settings as columns, read from that form or from the
// list that many radio programs exchange.
#pragma once

#include "changes.h"
#include "csv.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// A heading and a line for every channel.
[[nodiscard]] std::string ChannelsCsv(const Configuration& configuration);

struct BadCell {
  std::size_t line = 0;
  std::string column; // "" for a whole line
  std::string value;
  std::string why;
  bool operator==(const BadCell&) const = default;
};

// "3: rx_freq=500: allowed: 440 to 470 MHz", in the order of the lines.
[[nodiscard]] std::vector<std::string> TextsOf(std::vector<BadCell> bad);

struct ImportedValue {
  Assignment assignment;
  std::string column, cell; // where it comes from
};
struct ImportedRow {
  std::size_t line = 0;
  std::size_t channel = 0; // 1 to 16
  std::vector<ImportedValue> values;
};
struct ChannelList {
  bool hasHeading = false; // else there are no rows
  std::vector<ImportedRow> rows;
  std::vector<BadCell> bad;         // their lines are not among the rows
  std::vector<std::string> leftOut; // columns that a radio has nothing for
};
// A cell that is empty leaves its setting as it is.
[[nodiscard]] ChannelList ReadChannelList(std::string_view text);

// Changes the image by all the rows, or by none if it returns the cells that are refused.
[[nodiscard]] std::vector<BadCell> ImportChannels(RadioImage& image, const std::vector<ImportedRow>& rows,
                                                  const FieldTexts& texts);

// The two forms. A heading of the exchanged list has the columns Location and Frequency.
[[nodiscard]] bool IsExchangeList(const CsvRow& heading);
void ReadOwnForm(const CsvTable& table, ChannelList& list);
void ReadExchangeList(const CsvTable& table, ChannelList& list);
// As settings have it: a spreadsheet makes TRUE and FALSE of a yes and no, and writes the step 6.25 as 6.250.
[[nodiscard]] std::string ValueFrom(const Field& field, std::string cell, char decimalSeparator = '.');
void AddValue(ImportedRow& row, const Field& field, std::string text, const std::string& column,
              const std::string& cell);

} // namespace mr4500x
