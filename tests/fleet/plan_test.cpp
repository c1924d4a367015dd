#include "plan.h"
#include "plan_changes.h"
#include "rows.h"

#include <tuple>

namespace mr4500x {
namespace {

std::string Identity(std::string_view bytes) {
  return std::string(bytes);
}

class PlanTest : public testing::Test {
protected:
  PlanTest() { ResetToDefaults(image, {}); }
  PlanCheck Make(std::optional<std::string_view> rows) { return MakePlan(image, "plan", rows, texts, Identity); }

  RadioImage image;
  const FieldTexts texts = BuildFieldTexts('.');
};

TEST_F(PlanTest, RefusesWithLineColumnAndReason) {
  for (const Row& row : RowsOf(CASES "plans.txt", "(.*) -> (.*)")) {
    std::string problems;
    for (const std::string& problem : Make(Unescaped(row[1])).problems)
      problems += (problems.empty() ? "" : "|") + problem;
    EXPECT_EQ(problems, row[2]) << row[1];
  }
}

TEST_F(PlanTest, EndsLongListsOfProblems) {
  std::string list = "label,global.tx_tot\n";
  for (int row = 0; row < 300; ++row)
    list += ",61s\n";
  EXPECT_EQ(Make(list).problems.size(), 201U);
  EXPECT_EQ(Make(list).problems.back(), "... and more lines with problems");
  for (int row = 300; row <= 50'000; ++row)
    list += ",60s\n";
  EXPECT_EQ(Make(list).problems, std::vector<std::string>{"line 1: more than 50000 rows"});
  image.ResetTimeBlock[2] = 0; // damaged: only this is said
  EXPECT_EQ(Make("colour\n\n").problems.size(), 1U);
}

TEST_F(PlanTest, MakesAnImageForEachRow) {
  const PlanCheck check = Make("\xEF\xBB\xBFradio;label;channels.1.rx_freq;channels.1.in_use;embedded_info\r\n"
                               "R 1;\"A; 1\";440,025;TRUE;\"two\nlines\"\r\n;;;;\r\n;B;441;;\r\n");
  ASSERT_TRUE(check.problems.empty()) << check.problems.front();
  std::vector<JournalRow> rows = JournalRowsOf(check.plan);
  for (JournalRow& row : rows)
    EXPECT_NE(std::exchange(row.content, ""), check.plan.templateKey) << row.label;
  EXPECT_EQ(rows, (std::vector<JournalRow>{{1, "A; 1", "R 1", {}, "", ""}, {2, "B", "", {}, "", ""}}));
  const auto frequency = [&](std::size_t row) {
    return ValueOf(Decode(ImageFor(check.plan, row, texts), texts).configuration,
                   FindField("channels.1.rx_freq").value());
  };
  EXPECT_EQ(frequency(1) + ' ' + frequency(2) + ' ' + frequency(3), "440.02500 441.00000 440.00000");
  EXPECT_EQ(ImageFor(check.plan, 1, texts).EmbeddedInfoBlock.bytes[8], '\n');
  EXPECT_EQ(ImageFor(check.plan, 3, texts), image);
}

// Benches with the same key share the rows.
TEST_F(PlanTest, TheKeyDependsOnTheMeaningOfTheRows) {
  const std::string list = "label,radio,channels.1.rx_freq,channels.1.rx_step,channels.2.in_use,embedded_info\n"
                           "a,R1,446.0025,2.5,true,text\nb,,,,,\n";
  const std::string key = Make(list).plan.key;
  for (const Row& row : RowsOf(CASES "plan_keys.txt", "(same|other), [^:]+: (.*)")) {
    const PlanCheck check = Make(Unescaped(row[2]));
    EXPECT_TRUE(check.problems.empty()) << row[0] << check.problems.front();
    EXPECT_EQ(check.plan.key == key, row[1] == "same") << row[0];
  }
  EXPECT_NE(Make({}).plan.key, key);
  image.ChannelBlock(2, 2) ^= 1;
  EXPECT_NE(Make(list).plan.key, key);
}

TEST(PlanChangesTest, SayWhichRowsCarryOver) {
  const auto rowsIn = [](const std::string& text) {
    std::vector<JournalRow> rows;
    std::istringstream lines(text);
    for (std::string line, holder; std::getline(lines, line, ';'); holder.clear()) {
      std::istringstream cells(line);
      JournalRow& row = rows.emplace_back();
      for (std::string* const cell : {&row.label, &row.radio, &row.content, &holder})
        std::getline(cells, *cell, ',');
      row.state = holder.empty() ? RowState::Free : holder[0] == '!' ? RowState::Taken : RowState::Done;
      (row.state == RowState::Taken ? row.bench = holder.substr(1) : row.idNumber = holder);
      if (row.state == RowState::Done) row.bench = "B", row.stamp = "1";
    }
    return rows;
  };
  for (const Row& each : RowsOf(CASES "plan_changes.txt", "([^:]*): (.*) \\| (.*) -> (.*)")) {
    const PlanChanges found = CompareWithEarlier(rowsIn(each[3]), rowsIn(each[2]));
    std::string text;
    for (const JournalRow& row : found.rows) {
      text += (&row == found.rows.data() ? "" : ";") + row.idNumber;
      EXPECT_EQ(row.bench + row.stamp, row.state == RowState::Done ? "B1" : "");
    }
    text += ' ' + std::to_string(found.carriedOver) + " carried over, " + std::to_string(found.unknown) + " new, " +
            std::to_string(found.changed) + " changed, " + std::to_string(found.open) + " not done";
    for (const JournalRow& row : found.outdated)
      text += ", " + row.idNumber + " has old " + row.label + row.radio;
    EXPECT_EQ(text + (found.busyBench.empty() ? "" : ", " + found.busyBench), each[4]) << each[1];
  }
}

} // namespace
} // namespace mr4500x
