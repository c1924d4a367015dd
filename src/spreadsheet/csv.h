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
};

struct CsvTable {
  char separator = ','; // the first of the three in the first line
  std::vector<CsvRow> rows;
};

// Leaves out empty lines and a byte order mark. Takes CR LF, LF and CR as the end of a line.
[[nodiscard]] CsvTable ReadCsv(std::string_view text);

// One line with its end.
[[nodiscard]] std::string CsvLine(const std::vector<std::string>& cells);

} // namespace mr4500x
