#include "arguments.h"
#include "rows.h"
#include "simulated_radio.h"
#include "terminal.h"
#include "text.h"

#include <gtest/gtest.h>

#include <sstream>

namespace mr4500x {
namespace {

TEST(TerminalTest, TheBandQuestionIsAnsweredByTheUserOrByTheRule) {
  for (const Row& row :
       RowsOf(CASES "band_answers.txt", "[^:]+: \"(.*)\"(, no user)?(, --accept-band)? -> (yes|no)(?:: (.*))?")) {
    const BandAnswer band = row[3].empty() ? BandAnswer::Ask : BandAnswer::Yes;
    std::ostringstream out, err;
    std::istringstream in(Unescaped(row[1]));
    const Terminal terminal{out, err, in, row[2].empty(), false, [&] { return in.peek() != 3; }};
    EXPECT_EQ(TerminalObserver(terminal, band).AcceptsOtherBand(), row[4] == "yes") << row[0];
    EXPECT_EQ(out.str() + err.str(), Unescaped(row[5])) << row[0];
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

TEST(SimulatedRadioTest, AnswersAsInTheFile) {
  using Moment = SimulatedRadio::Moment;
  for (const Row& row : RowsOf(CASES "simulator_answers.txt", "[^:]+: (\\d+) (\\d+)([^:]*): (.*) -> (.*)")) {
    std::istringstream faults(row[3]), messages(row[4] + ", 9000000");
    std::vector<PlannedFault> planned;
    for (std::string fault; faults >> fault;)
      planned.push_back(ParseFault(fault).value());
    SimulatedRadio radio(FactoryMemory(), Moment(std::stoi(row[1])), planned, Moment(std::stoi(row[2])));
    std::string answers;
    for (std::string message; std::getline(messages, message, ',');) {
      std::size_t end = 0;
      const Moment at(std::stoi(message, &end));
      for (auto due = radio.NextReplyAt(); due && *due <= at; due = radio.NextReplyAt()) {
        answers += std::to_string(due->count());
        for (const std::uint8_t byte : radio.TakeReplies(*due))
          answers += {' ', HexDigit(byte >> 4), HexDigit(byte)};
        answers += ", ";
      }
      radio.Receive(BytesOf(message.substr(end)), at);
    }
    answers += std::to_string(radio.EndedSessions()) + (radio.HasVanished() ? " vanished" : " ended");
    EXPECT_EQ(answers, row[5]) << row[0];
  }
}

TEST(ArgumentsTest, InformationTexts) {
  EXPECT_EQ(InfoToPrint(std::u16string_view(u"a\r\n\tb\x1B[\0c", 9)), "a\n\tb.[");
}

} // namespace
} // namespace mr4500x
