// Comma-separated values after RFC 4180, and with a semicolon or a tab instead of the comma.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

struct CsvRow {
  std::size_t line = 0;           // on which it begins, from 1
  std::vector<std::string> cells; // without the blanks around them
  bool isWhole = true;            // false after a quote without its end, or with a text beside the quotes
  std::size_t place = 0;          // among all rows from 0, the empty ones too
};

// Far more than a list of channels has; a longer one is refused at once.
inline constexpr std::size_t MostColumns = 100, MostRows = 1000;

struct CsvTable {
  char separator = ',';
  std::vector<CsvRow> rows;
};

// Leaves out empty lines and a byte order mark. Takes CR LF, LF and CR as the end of a line. Without a separator it is
// the first of the three in the first line.
[[nodiscard]] CsvTable ReadCsv(std::string_view text, char separator = '\0');

// The same for what people keep in spreadsheets: each cell as one line, and none that are empty at the end of a row.
[[nodiscard]] CsvTable ReadCells(std::string_view text, char separator = '\0');
// A cell in a message: one line of not more than 40 characters and "...".
[[nodiscard]] std::string Shortened(std::string_view cell);

// One line with its end.
[[nodiscard]] std::string CsvLine(const std::vector<std::string>& cells);

} // namespace mr4500x
