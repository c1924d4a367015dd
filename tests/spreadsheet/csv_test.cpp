#include "csv.h"

#include "rows.h"

namespace mr4500x {
namespace {

// Line numbers and cells, as in "1:a|b 2:c"; "!" after a row that is not whole.
std::string Shown(std::string_view text) {
  std::string shown;
  for (const CsvRow& row : ReadCsv(text).rows) {
    shown += (shown.empty() ? "" : " ") + std::to_string(row.line) + ':';
    for (const std::string& cell : row.cells)
      shown += (&cell == row.cells.data() ? "" : "|") + cell;
    shown += row.isWhole ? "" : "!";
  }
  return shown;
}

TEST(CsvTest, ReadsWhatProgramsWrite) {
  for (const Row& row : RowsOf(CASES "csv.txt", "[^:]+: (.*) -> (.*)"))
    EXPECT_EQ(Shown(Unescaped(row[1])), Unescaped(row[2])) << row[0];
}

TEST(CsvTest, WritesWhatItReads) {
  const std::vector<std::string> cells = {"a", "", "b,c", "d \"e\"", "f;g", "h\r\ni", "\t."};
  EXPECT_EQ(CsvLine(cells), "a,,\"b,c\",\"d \"\"e\"\"\",\"f;g\",\"h\r\ni\",\"\t.\"\r\n");
  EXPECT_EQ(Shown(CsvLine(cells)), "1:a||b,c|d \"e\"|f;g|h\r\ni|.");
}

} // namespace
} // namespace mr4500x
