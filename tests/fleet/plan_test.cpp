#include "plan.h"

#include <gtest/gtest.h>

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
  const std::string heading = "label,radio,global.emergency_ani,channels.1.rx_freq,embedded_info\n";
  // clang-format off
  const std::pair<std::string, std::string> cases[] = {
      {"", "line 1: no heading"},
      {heading, "line 1: no rows below the heading"},
      {"label,colour,label\na,b,c\n", "line 1, colour: no such column|line 1, label: a column twice"},
      {heading + "a,R1,1,,\nb,R2,2\nc,R3,3,,,d\n",
       "line 3: 3 cells where the heading has 5|line 4: 6 cells where the heading has 5"},
      {heading + "a,R1,,,\nb,R1,,,\n\na,,,,\n",
       "line 3, radio: R1, given in line 2, too|line 5, label: a, given in line 2, too"},
      {heading + "a,,12x,500,\n",
       "line 2, global.emergency_ani: 12x, allowed: up to 16 of 0 to 9, A to D, * and #, or ----------------|line 2, channels.1.rx_freq: 500, allowed: 440 to 470 MHz"},
      {heading + "a,12345678901234567,,,\n\"b\"c,,,,\n", "line 2, radio: 12345678901234567, allowed: up to 16 "
                                                         "characters|line 3: quotes that do not enclose a whole cell"},
      {heading + "a,,,,\"" + std::string(120, 'x') + "\"\nb,,,,\xFF\n",
       "line 2, embedded_info: 120 characters, allowed: 119|line 3, embedded_info: not valid UTF-8"},
  };
  // clang-format on
  for (const auto& [rows, expected] : cases) {
    std::string problems;
    for (const std::string& problem : Make(rows).problems)
      problems += (problems.empty() ? "" : "|") + problem;
    EXPECT_EQ(problems, expected);
  }
}

TEST_F(PlanTest, GivesEachRowItsImage) {
  const PlanCheck check = Make("\xEF\xBB\xBFradio;label;channels.1.rx_freq;channels.1.in_use;embedded_info\r\n"
                               "R 1;\"A; 1\";440,025;TRUE;\"two\nlines\"\r\n;;;;\r\n;B;441;;\r\n");
  ASSERT_TRUE(check.problems.empty()) << check.problems.front();
  EXPECT_EQ(JournalRowsOf(check.plan),
            (std::vector<JournalRow>{{1, "A; 1", "R 1", {}, "", ""}, {2, "B", "", {}, "", ""}}));
  const auto frequency = [&](std::size_t row) {
    return ValueOf(Decode(ImageFor(check.plan, row, texts), texts).configuration,
                   FindField("channels.1.rx_freq").value());
  };
  EXPECT_EQ(frequency(1) + ' ' + frequency(2) + ' ' + frequency(3), "440.02500 441.00000 440.00000");
  EXPECT_EQ(ImageFor(check.plan, 1, texts).EmbeddedInfoBlock.bytes[8], '\n');
  EXPECT_EQ(ImageFor(check.plan, 3, texts), image);
}

// Benches with the same key share the rows.
TEST_F(PlanTest, TheKeyIsThatOfTheCells) {
  const std::string key = Make("label,radio\na,R1\n").plan.key;
  EXPECT_EQ(Make("label;radio\r\n\r\n\"a\" ;R1").plan.key, key);
  EXPECT_NE(Make("label,radio\na,R2\n").plan.key, key);
  EXPECT_NE(Make({}).plan.key, key);
  image.ChannelBlock(2, 2) ^= 1;
  EXPECT_NE(Make("label,radio\na,R1\n").plan.key, key);
}

} // namespace
} // namespace mr4500x
