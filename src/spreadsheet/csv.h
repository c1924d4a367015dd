// From bytes to cells, as spreadsheets and text editors write them: comma-separated values after RFC 4180, with a
// semicolon or a tab instead of the comma, in UTF-8 or UTF-16. What the cells mean is the matter of columns.h.
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
  std::vector<CsvRow> rows;
};

// Leaves out empty lines and a byte order mark. Takes CR LF, LF and CR as the end of a line. The separator is what a
// first line "sep=;" names; else the tab or the semicolon that the first line with a text has; else the comma, unless
// that line is one heading of a setting or, where numbers have decimal commas, one number.
[[nodiscard]] CsvTable ReadCsv(std::string_view bytes, char decimalSeparator = '.');

// A cell without line ends, with one blank for each run of blanks, hard spaces and control characters, and none at its
// ends.
[[nodiscard]] std::string OneLine(std::string_view cell);
// A cell in a message: one line of not more than 40 characters and "...".
[[nodiscard]] std::string Shortened(std::string_view cell);

// One line with its end.
[[nodiscard]] std::string CsvLine(const std::vector<std::string>& cells);

} // namespace mr4500x
