#include "arguments.h"
#include "terminal.h"

#include <gtest/gtest.h>

#include <sstream>

namespace mr4500x {
namespace {

TEST(TerminalTest, TheBandQuestionIsAnsweredByTheUserOrByTheRule) {
  // name, typed, whether a user can answer, the rule, accepted
  const std::tuple<const char*, const char*, bool, BandAnswer, bool> cases[] = {
      {"yes", "Yes\n", true, BandAnswer::Ask, true},
      {"asked again until it is an answer", "what\n\ny e s\n Y \n", true, BandAnswer::Ask, true},
      {"no", "NO\n", true, BandAnswer::Ask, false},
      {"the end of the input", "", true, BandAnswer::Ask, false},
      {"no user", "y\n", false, BandAnswer::Ask, false},
      {"interrupted", "\x03", true, BandAnswer::Ask, false}, // represents the signal
      {"accepted beforehand", "n\n", true, BandAnswer::Yes, true},
  };
  for (const auto& [name, typed, answersQuestions, band, accepted] : cases) {
    SCOPED_TRACE(name);
    std::ostringstream out, err;
    std::istringstream in(typed);
    const Terminal terminal{out, err, in, answersQuestions, false, [&] { return in.peek() != 3; }};
    EXPECT_EQ(TerminalObserver(terminal, band).AcceptsOtherBand(), accepted);
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
