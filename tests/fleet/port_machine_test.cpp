// A port's machine, event by event.
#include "port_machine.h"
#include "words.h"

#include <gtest/gtest.h>

#include <vector>

namespace mr4500x {
namespace {

using enum PortState;

PortEvent Identified(Outcome outcome, const std::string& idNumber = {}) {
  return RadioIdentified{outcome, idNumber, outcome == Outcome::PortNotOpened ? "busy" : ""};
}

const PortEvent Cycle = CycleStarted{}, Polled = JournalPolled{}, PollFailed = JournalPolled{"no answer"},
                Answer = RadioAnswered{}, Noise = RadioIdentified{Outcome::NoResponse, "", "noise"},
                Silence = Identified(Outcome::NoResponse), Radio = Identified(Outcome::Complete, "R"),
                Other = Identified(Outcome::Complete, "S"), Broken = Identified(Outcome::Interrupted),
                PortGone = Identified(Outcome::PortNotOpened), Write = RadioReported{Writing, 7, "Truck 7", "", 40},
                Verified = RadioReported{Done, 7, "Truck 7"}, DoneBefore = RadioReported{AlreadyDone, 7, "Truck 7"},
                NoFreeRow = RadioReported{NoRow}, JournalGone = RadioReported{.state = NoJournal, .text = "no answer"},
                Refused = RadioReported{Waiting}, BandDiffers = RadioReported{SetAside},
                Conflict = RadioReported{Failed},
                Failure = RadioReported{.state = Failed, .text = "silent", .isFailure = true};

std::string NameOfAction(PortAction action) {
  constexpr std::array Names = {"", "wait", "poll", "identify", "handle", "end"};
  return Names[static_cast<std::size_t>(action)];
}

TEST(PortMachineTest, AnswersEachEventWithAnActionAndAState) {
  const struct {
    const char* name;
    std::vector<PortEvent> events;
    const char *actions, *status; // the last actions, and the status at the end
    BenchView bench = {};         // at the last event
  } cases[] = {
      {"a radio gets its row",
       {Cycle, Polled, Answer, Radio, Write},
       "poll identify  handle ",
       "row 7, Truck 7, radio R: writing"},
      {"it is left alone until it is taken off",
       {Radio, Verified, Polled, Radio, Silence, Silence, Radio},
       "poll identify wait wait wait wait",
       "row 7, Truck 7, radio R: verified; take the radio off"},
      {"silent three times, it is gone",
       {Radio, Verified, Silence, Silence, Silence},
       "wait wait wait",
       "waiting for a radio"},
      {"another one follows it", {Radio, Verified, Other, Write}, "handle ", "row 7, Truck 7, radio S: writing"},
      {"noise", {Noise}, "wait", "waiting for a radio: noise"},
      {"a plug that bounces",
       {Answer, Broken, Broken, Radio},
       "wait wait handle",
       "radio R: asking the radio who it is"},
      {"an identification that fails three times", {Broken, Broken, Broken}, "wait wait handle", "waiting for a radio"},
      {"no slot is left", {Cycle, Polled, Cycle}, "identify wait", "waiting for a radio", {.hasSlot = false}},
      {"another port was quicker", {Radio, Refused}, "handle wait", "waiting for a radio"},
      {"done before is no failure",
       {Failure, Radio, DoneBefore, Other, Failure, Polled},
       "poll identify",
       "radio S: failed; take the radio off: silent"},
      {"nor is a radio that was set aside, nor a conflict",
       {Failure, BandDiffers, Failure, Conflict, Failure, Polled},
       "poll identify",
       "failed; take the radio off: silent"},
      {"two in a row are",
       {Radio, Failure, Other, Failure, Polled},
       "handle poll end",
       "radio S: stopped after two failures in a row: look at the cable; the last one: silent"},
      {"a row may become free",
       {Radio, NoFreeRow, Radio, Polled, Radio},
       "handle wait wait identify handle",
       "radio R: no row is free for it; take the radio off"},
      {"the journal is lost",
       {Cycle, PollFailed, Cycle, PollFailed, Cycle, Polled},
       "poll wait poll wait poll identify",
       "waiting for a radio"},
      {"the journal is lost with a radio",
       {Radio, JournalGone, Cycle},
       "handle wait poll",
       "radio R: no new rows until the journal answers: no answer"},
      {"the journal is lost after a radio",
       {Radio, Verified, PollFailed},
       "poll identify",
       "row 7, Truck 7, radio R: verified; take the radio off"},
      {"the port is lost", {PortGone, PollFailed}, "wait identify", "the port can't be opened: busy"},
      {"a pulled cable does not hide a failure",
       {Radio, Failure, PortGone, PollFailed, PortGone},
       "wait identify wait",
       "radio R: failed; take the radio off: silent"},
      {"the failed radio comes back",
       {Radio, Failure, PortGone, Answer, Radio},
       "wait  handle",
       "radio R: asking the radio who it is"},
      {"the bench is over",
       {Radio, Verified, Polled, Cycle},
       "identify poll",
       "row 7, Truck 7, radio R: verified; take the radio off",
       {.isOver = true}},
      {"the last row is done", {Radio, Verified, Polled}, "poll end", "finished", {.isOver = true}},
  };
  for (const auto& [name, events, actions, status, bench] : cases) {
    PortMachine machine;
    std::string all;
    for (const PortEvent& event : events) {
      auto [next, action] = Advance(std::move(machine), event, &event == &events.back() ? bench : BenchView{});
      machine = std::move(next);
      all += ' ' + NameOfAction(action);
    }
    EXPECT_TRUE(all.ends_with(actions)) << name << ":" << all;
    EXPECT_EQ(LineFor(machine.status, ""), status) << name;
  }
}

TEST(PortMachineTest, PollsTheJournalEveryTenthCycle) {
  PortMachine machine;
  std::string polled;
  for (int cycle = 0; cycle < 21; ++cycle) {
    auto [next, action] = Advance(std::move(machine), Cycle, {});
    machine = std::move(next);
    if (action == PortAction::PollJournal) polled += std::to_string(cycle) + ' ';
  }
  EXPECT_EQ(polled, "0 10 20 ");
}

} // namespace
} // namespace mr4500x
