#include "channel_list.h"

#include "channel_text.h"
#include "csv.h"
#include "differences.h"
#include "random_image.h"
#include "rows.h"

#include <algorithm>

namespace mr4500x {
namespace {

class ChannelListTest : public testing::Test {
protected:
  // What an import changes, or what it refuses.
  std::string Imported(std::string_view csv) {
    const ChannelList list = ReadChannelList(csv, texts);
    std::vector<RefusedCell> bad = list.bad;
    RadioImage changed = image;
    const std::vector<RefusedCell> refused = ApplyCells(changed, CellsOf(list.rows), texts);
    bad.insert(bad.end(), refused.begin(), refused.end());
    std::string lines;
    for (const RefusedCell& one : bad)
      lines += " | " + std::to_string(one.line) + ' ' + one.column + '=' + one.cell + ' ' + ReasonOf(one);
    for (const Difference& difference : CompareImages(image, changed, texts).settings)
      lines += " | " + IdentifierOf(difference.at).substr(9) + '=' + difference.after;
    return lines.substr(std::min<std::size_t>(lines.size(), 3));
  }

  const FieldTexts texts = BuildFieldTexts('.');
  RadioImage image;
  Configuration configuration = NewConfiguration(image, texts, {2026, 1, 2, 3, 4, 5});
};

TEST_F(ChannelListTest, AnExportComesBackAsTheSameBytes) {
  std::mt19937 random(12);
  for (int round = 0; round < 200; ++round) {
    const RadioImage before = RandomImage(random);
    const Configuration shown = Decode(before, texts).configuration;
    std::string csv = round % 4 == 1 ? CaptionedCsv(shown) : ChannelsCsv(shown);
    if (round % 2 == 0) { // like a spreadsheet with decimal commas
      std::ranges::replace(csv, ',', ';');
      std::ranges::replace(csv, '.', ',');
      csv.insert(0, "\xEF\xBB\xBF");
    }
    const ChannelList list = ReadChannelList(csv, texts);
    ASSERT_TRUE(list.bad.empty() && list.leftOut.empty() && list.rows.size() == ChannelCount) << csv;
    RadioImage after = before;
    ASSERT_TRUE(ApplyCells(after, CellsOf(list.rows), texts).empty()) << csv;
    ASSERT_EQ(after, before) << round;
  }
}

TEST_F(ChannelListTest, DoesWhatTheFileSays) {
  const std::string heading = "Location,Name,Frequency,Duplex,Offset,Tone,rToneFreq,cToneFreq,DtcsCode,DtcsPolarity,"
                              "RxDtcsCode,CrossMode,Mode,Power\n";
  for (const Row& row : RowsOf(CASES "channel_list.txt", "(whole|line), [^:]+: (.*) -> (.*)")) {
    const std::string csv = row[1] == "whole" ? Unescaped(row[2]) : heading + "1,Name," + row[2] + ",High\n";
    EXPECT_EQ(Imported(csv), row[3]) << row[0];
  }
  EXPECT_EQ(ReadChannelList(heading, texts).leftOut, (std::vector<std::string>{"Name", "Power"}));
}

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
