#include "csv.h"

#include <gtest/gtest.h>

#include <tuple>

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
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"nothing", "", ""},
      {"line ends", "a,b\r\nc,d\ne\rf", "1:a|b 2:c|d 3:e 4:f"},
      {"byte order mark",
       "\xEF\xBB\xBF"
       "a,b",
       "1:a|b"},
      {"semicolon, with decimal commas", "a;b\n1,5;2", "1:a|b 2:1,5|2"},
      {"tab", "a\tb\n1,5\t", "1:a|b 2:1,5|"},
      {"a separator in quotes is none", "a;b\n\"c;d\";e", "1:a|b 2:c;d|e"},
      {"one column", "a\nb", "1:a 2:b"},
      {"quotes", "\"a\",\"b \"\"c\"\", d\",\"\"\n\"\"\"\",x", "1:a|b \"c\", d| 2:\"|x"},
      {"a line end in quotes", "\"a\r\nb\",c\nd", "1:a\r\nb|c 3:d"},
      {"blanks", " a , \"b\" ,c\t", "1:a|b|c"},
      {"empty lines", "\n\na\n,,\n\nb\n", "3:a 6:b"},
      {"a quote without end", "a\n\"b\nc", "1:a 2:b\nc!"},
      {"a text beside quotes", "\"a\"b,c\nd\"e,f", "1:ab|c! 2:d\"e|f!"},
  };
  for (const auto& [name, text, shown] : cases)
    EXPECT_EQ(Shown(text), shown) << name;
}

TEST(CsvTest, WritesWhatItReads) {
  const std::vector<std::string> cells = {"a", "", "b,c", "d \"e\"", "f;g", "h\r\ni", "\t."};
  EXPECT_EQ(CsvLine(cells), "a,,\"b,c\",\"d \"\"e\"\"\",\"f;g\",\"h\r\ni\",\"\t.\"\r\n");
  EXPECT_EQ(Shown(CsvLine(cells)), "1:a||b,c|d \"e\"|f;g|h\r\ni|.");
}

} // namespace
} // namespace mr4500x
