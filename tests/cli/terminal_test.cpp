#include "info_text.h"
#include "port_argument.h"
#include "terminal.h"

#include <gtest/gtest.h>

#include <sstream>

namespace mr4500x {
namespace {

TEST(TerminalTest, QuestionsAreAnsweredBySomebodyOrByTheRule) {
  using Policy = TerminalMessages::Policy;
  const struct {
    const char *story, *typed;
    bool answersQuestions;
    Policy policy;
    Answer answer;
  } cases[] = {
      {"yes", "Yes\n", true, Policy::Ask, Answer::Yes},
      {"asked again until it is an answer", "what\n\ny e s\n Y \n", true, Policy::Ask, Answer::Yes},
      {"no", "NO\n", true, Policy::Ask, Answer::No},
      {"the end of the input", "", true, Policy::Ask, Answer::No},
      {"nobody there", "y\n", false, Policy::Ask, Answer::No},
      {"accepted beforehand", "n\n", true, Policy::AlwaysYes, Answer::Yes},
  };
  for (const auto& c : cases) {
    std::ostringstream out, err;
    std::istringstream in(c.typed);
    Terminal terminal{out, err, in, c.answersQuestions, false};
    TerminalMessages messages(terminal, c.policy);
    EXPECT_EQ(messages.Show(MessageIcon::Exclamation, "Frequency Band", "Go on?", MessageButtons::YesNo), c.answer)
        << c.story;
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(err.str().empty(), c.policy == Policy::AlwaysYes) << c.story;
  }
}

TEST(ArgumentsTest, PortsAreNumbersOrPaths) {
  for (const char* const bad : {"", "0", "17", "00000000000001", "COM17"}) {
    EXPECT_FALSE(ParsePortArgument(bad)) << bad;
  }
  EXPECT_EQ(NameOf(*ParsePortArgument("16")), "COM16");
  EXPECT_EQ(NameOf(*ParsePortArgument("com3")), "COM3");
  EXPECT_EQ(NameOf(*ParsePortArgument("/dev/ttyUSB0")), "/dev/ttyUSB0");
}

TEST(ArgumentsTest, InformationTexts) {
  EXPECT_EQ(InfoFromArgument("a\nb\r\nc\rd"), u"a\r\nb\r\nc\r\nd");
  EXPECT_EQ(InfoFromArgument("\xF0\x9F\x93\xBB"), u"\U0001F4FB"); // two units
  EXPECT_EQ(InfoFromArgument("a\xFF"), std::nullopt);
  EXPECT_EQ(InfoToPrint(std::u16string_view(u"a\r\nb\x1B[\0c", 8)), "a\nb.[");
}

} // namespace
} // namespace mr4500x
