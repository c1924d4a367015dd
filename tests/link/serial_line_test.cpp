#include "port_choice.h"
#include "require.h"
#include "scripted_radio.h"

namespace mr4500x {
namespace {

TEST(SerialLine, PollsInRoundsOfTwentyMilliseconds) {
  const struct {
    const char* name;
    Clock::Moment arrival;
    std::size_t count;
    Polled result;
    Clock::Moment end;
  } cases[] = {
      {"satisfied at once", 0ms, 1, Polled::Satisfied, 20ms},
      {"in the last round", 40ms, 1, Polled::Satisfied, 60ms},
      {"after the last look", 41ms, 1, Polled::TimedOut, 60ms},
      {"too few", 0ms, 2, Polled::TimedOut, 60ms},
  };
  for (const auto& c : cases) {
    Desk desk;
    desk.radio.air.emplace_back(c.arrival, std::uint8_t{0x06});
    EXPECT_EQ(desk.line.Poll(c.count, 3), c.result) << c.name;
    EXPECT_EQ(desk.radio.now, c.end) << c.name;
  }
}

TEST(SerialLine, SendsUntilTheBytesHaveLeftTheLineAndGivesUpAfterTwoSeconds) {
  Desk desk;
  desk.radio.open = true;
  EXPECT_TRUE(desk.line.Send(EndPacket));
  EXPECT_EQ(desk.radio.now, 15ms);
  desk.radio.stuck = true;
  EXPECT_FALSE(desk.line.Send(EndPacket));
  EXPECT_EQ(desk.radio.now, 2015ms);
}

TEST(Port, ChoosesTheOneInUseElseTheLowestThatWorks) {
  const struct {
    const char* name;
    int current;
    std::vector<int> working;
    int number, preselected;
  } cases[] = {
      {"the lowest", 2, {1, 4}, 1, 1}, {"its own", 4, {1, 4}, 4, 4},  {"not 1", 3, {16, 9}, 9, 9},
      {"none works", 5, {}, 0, 1},     {"above 16", 20, {2}, 20, 16},
  };
  for (const auto& c : cases) {
    const auto works = [&](int n) { return std::find(c.working.begin(), c.working.end(), n) != c.working.end(); };
    SCOPED_TRACE(c.name);
    const PortChoice choice = ChoosePort(c.current, works);
    EXPECT_EQ(choice.number, c.number);
    EXPECT_EQ(choice.preselected, c.preselected);
    for (int n = 1; n <= PortCount; ++n)
      EXPECT_EQ(choice.enabled[static_cast<std::size_t>(n - 1)], works(n)) << n;
  }
}

} // namespace
} // namespace mr4500x
