// Reads cells from the bytes of a table: comma-separated values as in RFC 4180, also with a semicolon or a tab instead
// of the comma, in UTF-8 or UTF-16. columns.h interprets the cells.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

struct CsvRow {
  std::size_t line = 0;           // first line of the row, from 1
  std::vector<std::string> cells; // without the blanks around them
  bool isWhole = true;            // false if a quote is not closed, or if there is text outside the quotes
  std::size_t place = 0;          // among all rows, including empty ones, from 0
};

// Far more than any list of channels needs. A longer one is refused at once.
inline constexpr std::size_t MostColumns = 100, MostChannelRows = 1000;

struct CsvTable {
  std::vector<CsvRow> rows;
};

// Skips empty lines and a byte order mark. Lines end with CR LF, LF or CR. The separator is the one in a first line
// "sep=;", otherwise the tab or semicolon in the first line with text, otherwise the comma. If that line is a single
// heading or, with a decimal comma in the locale, a single number, there is only one column.
[[nodiscard]] CsvTable ReadCsv(std::string_view bytes, char decimalSeparator = '.');

// A cell on one line: each run of blanks, hard spaces, line ends and control characters becomes one blank, and blanks
// at the ends are removed.
[[nodiscard]] std::string OneLine(std::string_view cell);
// A cell for a message: one line of at most 40 characters and "...".
[[nodiscard]] std::string Shortened(std::string_view cell);

// One line, with its line end.
[[nodiscard]] std::string CsvLine(const std::vector<std::string>& cells);

} // namespace mr4500x
