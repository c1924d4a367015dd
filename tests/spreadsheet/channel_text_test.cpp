#include "channel_text.h"

#include "changes.h"
#include "channel_list.h"
#include "differences.h"
#include "rows.h"

#include <algorithm>

namespace mr4500x {
namespace {

std::string Pasted(std::string_view text, char decimalSeparator) {
  const FieldTexts texts = BuildFieldTexts(decimalSeparator);
  RadioImage image;
  const Configuration before = NewConfiguration(image, texts, {2026, 1, 2, 3, 4, 5});
  Configuration after = before;
  std::string lines;
  const ChannelList list = TakeChannels(after, 0, text, texts);
  const Refusals refusals = WordsForPasted(list.bad);
  for (const std::string& refusal : refusals)
    lines += " | " + refusal;
  for (const Difference& difference : DifferencesBetween(before, after)) {
    std::string value = difference.after;
    std::ranges::replace(value, ',', '.');
    if (refusals.empty()) lines += " | " + IdentifierOf(difference.at).substr(9) + '=' + value;
  }
  for (const std::string& column : list.leftOut)
    lines += " | left out: " + column;
  return lines.substr(std::min<std::size_t>(lines.size(), 3));
}

TEST(ChannelTextTest, TakesOrRefusesWhatTheFileSays) {
  for (const Row& row : RowsOf(CASES "channel_text.txt", "(point|comma|both), [^:]+: (.*) -> (.*)"))
    for (const char separator : std::string(row[1] == "both" ? ".," : row[1] == "comma" ? "," : "."))
      EXPECT_EQ(Pasted(Unescaped(row[2]), separator),
                std::regex_replace(row[3], std::regex("469\\."), std::string("469") + separator))
          << row[0] << separator;
}

TEST(ChannelTextTest, AHeadingWithoutAKnownColumnIsOneRefusalThatNamesTheKnownOnes) {
  const std::string known = "none of these headings is known. Known headings are CH No., Rx Freq (MHz), ";
  EXPECT_TRUE(Pasted("Name\tFreq\tOffset\nA\t441\t442\nB\t441\t442\n", '.').starts_with(known));
  EXPECT_EQ(Pasted("Name\tFreq\nA\t441\n", '.').find('|'), std::string::npos);
  const ChannelList list = ReadChannelList("Nummer;Freq\n1;441\n", BuildFieldTexts('.'));
  ASSERT_EQ(list.bad.size(), 1U);
  EXPECT_TRUE(TextsOf(list.bad)[0].starts_with("1: " + known)) << TextsOf(list.bad)[0];
}

TEST(ChannelTextTest, HugeTextsAreRefusedBriefly) {
  std::string columns, lines;
  for (std::size_t i = 0; i < 50'000; ++i) {
    columns += "a,";
    lines += "\n1";
  }
  for (const std::string& text : {columns, "rx_freq\n\"" + columns, "rx_freq\n\"" + lines, lines}) {
    EXPECT_LT(MessageOf({Pasted(text, '.')}).size(), 1000U) << text.substr(0, 10);
    EXPECT_LT(MessageOf(TextsOf(ReadChannelList(text, BuildFieldTexts('.')).bad)).size(), 200U) << text.substr(0, 10);
  }
  EXPECT_EQ(Pasted(columns, '.'), "more than 100 columns or 1000 lines");
}

} // namespace
} // namespace mr4500x
