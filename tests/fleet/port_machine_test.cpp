// A port's machine, event by event, and what becomes of the radios that it leaves unverified.
#include "attempt_records.h"
#include "open_radios.h"
#include "port_machine.h"
#include "row_queue.h"
#include "rows.h"
#include "words.h"

#include <map>

namespace mr4500x {
namespace {

using enum PortState;
using namespace std::chrono_literals;

PortEvent Identified(Outcome outcome, const std::string& idNumber = {}) {
  return RadioIdentified{outcome, idNumber, outcome == Outcome::PortNotOpened ? "busy" : ""};
}

const std::map<std::string, PortEvent> Events = {
    {"Cycle", CycleStarted{}},
    {"Polled", JournalPolled{}},
    {"PollFailed", JournalPolled{"no answer"}},
    {"Answer", RadioAnswered{}},
    {"Noise", RadioIdentified{Outcome::NoResponse, "", "noise"}},
    {"Silence", Identified(Outcome::NoResponse)},
    {"Radio", Identified(Outcome::Complete, "R")},
    {"Other", Identified(Outcome::Complete, "S")},
    {"Broken", Identified(Outcome::Interrupted)},
    {"PortGone", Identified(Outcome::PortNotOpened)},
    {"Write", RadioReported{Writing, 7, "Truck 7", "", 40}},
    {"Verified", RadioReported{Done, 7, "Truck 7"}},
    {"DoneBefore", RadioReported{AlreadyDone, 7, "Truck 7"}},
    {"NoFreeRow", RadioReported{NoRow}},
    {"JournalGone", RadioReported{.state = NoJournal, .text = "no answer"}},
    {"Refused", RadioReported{Waiting}},
    {"BandDiffers", RadioReported{SetAside}},
    {"Reissued", RadioReported{.state = SetAside, .text = "was reissued", .remedy = Remedy::ProgramIt}},
    {"Conflict", RadioReported{Failed}},
    {"Failure", RadioReported{.state = Failed, .text = "silent", .isFailure = true, .remedy = Remedy::CheckCable}},
    {"NoRoom", RadioReported{.state = Failed, .text = "no room", .isFailure = true}},
    {"Held", RadioReported{.state = NoRow, .text = "Wait: held by bench B for 1:40"}},
};

std::string NameOfAction(PortAction action) {
  constexpr std::array Names = {"-", "wait", "poll", "identify", "handle", "end"};
  return Names[static_cast<std::size_t>(action)];
}

TEST(PortMachineTest, AnswersEachEventWithAnActionAndAState) {
  const std::map<std::string, BenchView> benches = {{"", {}},
                                                    {" at a bench that is over", {.isOver = true}},
                                                    {" without a slot", {.hasSlot = false}},
                                                    {" after Go on", {.goesOn = true}}};
  for (const Row& row : RowsOf(CASES "port_events.txt", "[^:]+: ([A-Z ]\\w+(?: [A-Z]\\w+)*)(.*) -> (.*) -> (.*)")) {
    std::istringstream names(row[1]);
    PortMachine machine;
    std::string all, name;
    while (names >> name) {
      auto [next, action] =
          Advance(std::move(machine), Events.at(name), names.eof() ? benches.at(row[2]) : BenchView{});
      machine = std::move(next);
      all += ' ' + NameOfAction(action);
      EXPECT_FALSE(action == PortAction::End && IsByClick(machine.status.remedy)) << row[0];
    }
    EXPECT_TRUE(all.ends_with(row[3])) << row[0] << ":" << all;
    EXPECT_EQ(LineFor(machine.status, ""), row[4]) << row[0];
  }
}

TEST(FleetWords, AreAsInTheFile) {
  std::string lines;
  for (int i = 0; i <= 2 * static_cast<int>(Outcome::DisplayError) + 1; ++i)
    lines +=
        ReasonFor({i % 2 == 0 ? Transfer::Read : Transfer::Write, Outcome(i / 2), "COM3", i == 2 ? "" : "busy"}) + '\n';
  for (const std::string& line :
       {LostReason("J"), RenamedReason("J"), ChangedTemplateReason("T"), BusyWithEarlierReason("B"), LineForPending(1),
        LineForPending(2), AtOtherPortReason("COM3"), ChoiceGoneReason(7), ReissuedReason(7), OtherBandReason("", "R"),
        OtherBandReason("B", "R"), BackupReason("F", "why"), CommandReason(3, "why", 60s), CommandReason({}, "", 60s),
        NoFreeRowReason({1, 2, 0, 3, {4, "", "", RowState::Taken, "B", ""}}), LineForProgress({7, 40, 2, 12}),
        LinesForOutdated(std::vector(3, JournalRow()), 2).back()})
    lines += line + '\n';
  std::ifstream file(CASES "words.txt");
  EXPECT_EQ(lines, std::string(std::istreambuf_iterator<char>(file), {}));
}

// The attempts may also be those that an earlier bench has left in the journal.
TEST(OpenRadiosTest, StayUntilTheyAreVerifiedOrDismissed) {
  const auto names = [](const std::map<std::string, Attempt>& attempts) {
    std::string text;
    for (const auto& [key, attempt] : attempts)
      text += attempt.idNumber + ' ';
    return text;
  };
  for (const Row& row : RowsOf(CASES "open_radios.txt", "[^:]+: (.*) -> (.*)")) {
    OpenRadios open;
    std::istringstream steps(row[1]);
    for (std::string step; std::getline(steps >> std::ws, step, ',');) {
      Attempt attempt;
      attempt.key = attempt.idNumber = step.substr(step.size() - 1);
      if (step.find('@') != std::string::npos) attempt.port = "COM1";
      if (std::erase(step, '*') > 0) attempt.sha256 = "00";
      attempt.outcome = OutcomeStoredAs(step.substr(0, step.rfind(' '))).value();
      open.Record(attempt);
    }
    EXPECT_EQ(names(open.Failed()) + "| " + names(open.PartlyWritten()) + "| " + names(open.Notes()), row[2] + ' ')
        << row[0];
  }
}

TEST(PortMachineTest, PollsTheJournalEveryTenthCycle) {
  PortMachine machine;
  std::string polled;
  for (int cycle = 0; cycle < 21; ++cycle) {
    auto [next, action] = Advance(std::move(machine), CycleStarted{}, {});
    machine = std::move(next);
    if (action == PortAction::PollJournal) polled += std::to_string(cycle) + ' ';
  }
  EXPECT_EQ(polled, "0 10 20 ");
}

} // namespace
} // namespace mr4500x
