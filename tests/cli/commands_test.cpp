#include "arguments.h"
#include "rows.h"
#include "terminal.h"

#include <gtest/gtest.h>

#include <sstream>

namespace mr4500x {
namespace {

TEST(TerminalTest, TheBandQuestionIsAnsweredByTheUserOrByTheRule) {
  for (const Row& row : RowsOf(CASES "band_answers.txt", "[^:]+: \"(.*)\"(, no user)?(, --accept-band)? -> (yes|no)")) {
    SCOPED_TRACE(row[0]);
    const bool answersQuestions = row[2].empty();
    const BandAnswer band = row[3].empty() ? BandAnswer::Ask : BandAnswer::Yes;
    std::ostringstream out, err;
    std::istringstream in(Unescaped(row[1]));
    const Terminal terminal{out, err, in, answersQuestions, false, [&] { return in.peek() != 3; }};
    EXPECT_EQ(TerminalObserver(terminal, band).AcceptsOtherBand(), row[4] == "yes");
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(err.str().empty(), band == BandAnswer::Yes);
    EXPECT_EQ(err.str().find("--accept-band") != std::string::npos, band == BandAnswer::Ask && !answersQuestions);
  }
}

TEST(TerminalTest, ProgressIsOneLineThatNeverGoesBack) {
  std::ostringstream err;
  std::istringstream in;
  const Terminal terminal{err, err, in, false, true};
  TerminalObserver observer(terminal, BandAnswer::Ask);
  observer.Began(Transfer::Write, 330);
  for (const int value : {33, 34, 330, 310})
    observer.Progress(value);
  observer.Ended();
  const std::string text = "\rWrite data to the radio ... ";
  EXPECT_EQ(err.str(), text + "0 %" + text + "10 %" + text + "100 %\n");
}

TEST(ArgumentsTest, InformationTexts) {
  EXPECT_EQ(InfoToPrint(std::u16string_view(u"a\r\nb\x1B[\0c", 8)), "a\nb.[");
}

} // namespace
} // namespace mr4500x
