#include "attempt_records.h"
#include "bench.h"
#include "conventions.h"
#include "data_file.h"
#include "file_access.h"
#include "fleet_fixture.h"
#include "rows.h"

#include <fstream>
#include <functional>
#include <map>
#include <sstream>

namespace mr4500x {
namespace {

const std::string TwoRows = "label,global.connect_id,embedded_info\nTruck 1,11,\xC3\x84rger\nTruck 2,22,\n";

TEST(FleetTest, GivesEachRadioItsRow) {
  Fleet fleet;
  fleet.UsePlan("label,radio,global.connect_id\nTruck 1,,11\nTruck 2,R-3,22\nTruck 3,,33\n");
  fleet.settings.operatorName = "Ann";
  fleet.state->Rows().Choose(3);
  for (const char* const id : {"R-1", "R-2", "R-3"})
    fleet.AddRadio(id);
  fleet.settings.speed = Speed::Quick;
  fleet.Run();
  EXPECT_LT(fleet.cables[0].Now(), 30s) << "quick";
  const std::string steps = "WAITING, IDENTIFYING, BACKUP, WRITING, VERIFYING, UNPLUG, ";
  EXPECT_EQ(fleet.States(), steps + steps + steps + "FINISHED");
  for (const auto& [id, row] : {std::pair("R-1", 3U), {"R-2", 1U}, {"R-3", 2U}})
    EXPECT_TRUE(fleet.Holds(id, row)) << id;
  EXPECT_EQ(fleet.next, "next for COM1: Truck 3\n");
  EXPECT_EQ(fleet.shelf["R-3"][0x130], 0x22); // connect ID
  const Attempt& last = fleet.tables.attempts.back();
  // clang-format off
  const Attempt expected = {"3", fleet.plan.key, 2, "Truck 2", "R-3", "V1.02", "440 to 470 MHz", "COM1", "A",
                            "2026-11-04 09:00:05Z", "2026-11-04 09:00:06Z", AttemptOutcome::Verified, "",
                            fleet.folder + "/backup" + Separator + "R-3_20261104_090003.K4X", last.sha256,
                            "20261104090003", "Ann"};
  // clang-format on
  EXPECT_EQ(last, expected);
}

// Each fault of a radio at each step of its job. A radio that is not done is connected again, without the fault.
TEST(FleetTest, ARadioWithAFaultFreesItsRowOrHoldsIt) {
  const std::vector<Row> cases = RowsOf(CASES "faults.txt", "([^:]*): ([vfs-]{4}) ?([vfs-]*)");
  ASSERT_EQ(cases.size(), FaultKinds().size());
  EXPECT_EQ(ParseFault("vanish").value().record, 10) << "in the middle of an exchange";
  const std::map<char, std::string> entries = {
      {'v', "verified"}, {'f', "failed, verified"}, {'s', "set aside, verified"}, {'-', "verified"}};
  for (const Row& row : cases)
    for (std::size_t i = 0; i < row[2].size() + row[3].size(); ++i) {
      const auto step = static_cast<PortState>(static_cast<std::size_t>(PortState::Identifying) + i % 4);
      const std::string fault = row[1] + (i < 4 ? "" : "@3");
      const char outcome = row[i < 4 ? 2 : 3][i % 4];
      SCOPED_TRACE(testing::Message() << fault << " while it is " << WordFor(step));
      Fleet fleet;
      fleet.UsePlan(TwoRows);
      fleet.putsBack = true;
      fleet.AddRadio("R", {ParseFault(fault).value()}, step);
      const RadioMemory before = fleet.table.front().memory;
      fleet.Run();
      EXPECT_EQ(fleet.Outcomes(), entries.at(outcome));
      EXPECT_EQ(fleet.tables.done, (std::map<std::size_t, int>{{1, 1}}));
      EXPECT_EQ(fleet.tables.rows[1].state, RowState::Free);
      EXPECT_TRUE(fleet.Holds("R", 1));
      const Attempt& first = fleet.tables.attempts.front();
      EXPECT_EQ(first.text.empty(), outcome == 'v' || outcome == '-');
      EXPECT_TRUE(first.outcome != AttemptOutcome::SetAside || first.sha256.empty());
      EXPECT_TRUE(!first.sha256.empty() || fleet.off.front() == before) << "written without a backup";
      if (step < PortState::Writing || outcome == '-') continue;
      RadioImage kept;
      EXPECT_EQ(LoadDataFile(fleet.files, first.backup, kept).outcome, LoadOutcome::Loaded);
      EXPECT_TRUE(CompareImages(ImageOf(before), kept, fleet.texts).IsEmpty());
      EXPECT_NE(kept.FiveToneStandard, 0) << "the editor would refuse it";
    }
}

JournalRow DoneRow(const std::string& stamp) {
  return {2, "", "", RowState::Done, "B", "R-0", stamp};
}

// What happens to a fleet in port_runs.txt.
const std::map<std::string, std::function<void(Fleet&)>> RunEvents = {
    {"no list", [](Fleet& fleet) { fleet.UsePlan({}); }},
    {"a list without settings", [](Fleet& fleet) { fleet.UsePlan("label\na\nb\n"); }},
    {"a list for X alone", [](Fleet& fleet) { fleet.UsePlan("radio\nX\n"); }},
    {"one asked for", [](Fleet& fleet) { fleet.state = std::make_unique<BenchState>(1); }},
    {"two asked for", [](Fleet& fleet) { fleet.state = std::make_unique<BenchState>(2); }},
    {"row 7 was given out again", [](Fleet& fleet) { fleet.tables.reissued = 7; }},
    {"a list for R-0 alone", [](Fleet& fleet) { fleet.UsePlan("radio\nR-0\n"); }},
    {"a click", [](Fleet& fleet) { fleet.goesOn = true; }},
    {"accept reissued", [](Fleet& fleet) { fleet.settings.acceptsReissued = true; }},
    {"row 2 chosen", [](Fleet& fleet) { fleet.state->Rows().Choose(2); }},
    {"a VHF template", [](Fleet& fleet) { fleet.plan.image.BandBlock[0] = 0xC0; }},
    {"a UHF template", [](Fleet& fleet) { fleet.plan.image.BandBlock[0] = 0xB8; }},
    {"any band", [](Fleet& fleet) { fleet.settings.acceptsOtherBand = true; }},
    {"compare done", [](Fleet& fleet) { fleet.settings.comparesDone = true; }},
    {"rewrite done", [](Fleet& fleet) { fleet.settings.rewritesDone = true; }},
    {"no room for backups", [](Fleet& fleet) { fleet.settings.backupFolder = "/proc/none"; }},
    {"each Go on", [](Fleet& fleet) { fleet.goesOn = true; }},
    {"stop", [](Fleet& fleet) { fleet.state->StopAfterTheseRadios(); }},
    {"a signal", [](Fleet& fleet) { fleet.state->StopBeforeWrites(); }},
    {"row 1 goes to bench B", [](Fleet& fleet) { fleet.tables.rows[0].bench = "B"; }},
    {"R-0 has row 2", [](Fleet& fleet) { fleet.tables.rows[1] = DoneRow(""); }},
    {"R-0 has row 2 since 2024", [](Fleet& fleet) { fleet.tables.rows[1] = DoneRow("20240115093000"); }},
    {"R-0 has row 2 since 2026", [](Fleet& fleet) { fleet.tables.rows[1] = DoneRow("20260101000000"); }},
    {"R-9 in its place", [](Fleet& fleet) { fleet.cables[0].Exchange("R-9"); }},
    {"another number", [](Fleet& fleet) { fleet.cables[0].Spoil(0x1F0); }},
    {"another firmware", [](Fleet& fleet) { fleet.cables[0].Spoil(0x3F8); }},
    {"another setting", [](Fleet& fleet) { fleet.cables[0].Spoil(0x10C); }},
    {"another text", [](Fleet& fleet) { fleet.cables[0].Spoil(0x210); }},
    {"a busy port", [](Fleet& fleet) { fleet.cables[0].openFailure = "busy"; }},
    {"a free port", [](Fleet& fleet) { fleet.cables[0].openFailure.reset(); }},
    {"the journal is lost", [](Fleet& fleet) { fleet.tables.isLost = true; }},
    {"the journal answers", [](Fleet& fleet) { fleet.tables.isLost = false; }},
    {"the journal is full", [](Fleet& fleet) { fleet.tables.isFull = true; }},
    {"the journal has room", [](Fleet& fleet) { fleet.tables.isFull = false; }},
};

PortState StateOf(const std::string& word) {
  int state = 0;
  while (WordFor(PortState(state)) != word && PortState(state) != PortState::Finished)
    ++state;
  return PortState(state);
}

TEST(FleetTest, ThePortGoesOnAsLongAsItMay) {
  using enum PortState;
  for (const Row& row :
       RowsOf(CASES "port_runs.txt",
              "([^:]+): ([^;]*); ([^;]*);(?: ([A-Z ]+): ([^;]*))? -> (.*) -> (.*); (\\d)(?:; (.*))?")) {
    const auto& [line, name, radios, before, state, event, outcomes, lastStates, radiosLeft, hint] =
        std::tie(row[0], row[1], row[2], row[3], row[4], row[5], row[6], row[7], row[8], row[9]);
    SCOPED_TRACE(name);
    Fleet fleet;
    fleet.UsePlan(TwoRows);
    std::istringstream events(before);
    for (std::string each; std::getline(events >> std::ws, each, ',');)
      RunEvents.at(each)(fleet);
    if (!event.empty()) fleet.when = {StateOf(state), RunEvents.at(event)};
    std::istringstream words(radios);
    for (std::string radio; words >> radio;)
      fleet.AddRadio(radio == "unnumbered" ? "" : "R-" + std::to_string(fleet.table.size()),
                     {{radio == "bad"     ? Fault::Ng
                       : radio == "noisy" ? Fault::Garbage
                                          : Fault::SplitReply,
                       {}}});
    fleet.Run();
    EXPECT_EQ(fleet.Outcomes(), outcomes);
    EXPECT_TRUE(fleet.States().ends_with(lastStates)) << fleet.States();
    EXPECT_EQ(std::to_string(fleet.table.size()), radiosLeft);
    EXPECT_EQ(!fleet.hints.empty(), radios.find("noisy") != std::string::npos);
    std::string lastHint;
    for (const PortStatus& status : fleet.shown) {
      EXPECT_TRUE(status.row == 0 || (status.state != Failed && status.state != SetAside));
      if (status.remedy != Remedy::None) lastHint = HintFor(status.remedy);
    }
    EXPECT_EQ(lastHint, hint);
    for (const Attempt& attempt : fleet.tables.attempts)
      EXPECT_TRUE(attempt.outcome != AttemptOutcome::Verified || fleet.Holds(attempt.idNumber, attempt.row));
  }
}

TEST(FleetTest, ARadioAtAnotherPortOrBenchIsReported) {
  const std::pair<JournalRow, const char*> cases[] = {
      {{1, "", "", RowState::Taken, "A", "R-1", "", 20}, "this number is in use at COM2"},
      {{1, "", "", RowState::Taken, "B", "R-1", "", 20}, "Wait: held by bench B for 1:40"},
      {{1, "", "", RowState::Taken, "B", "R-1", "", 115}, "Wait: held by bench B for 0:05"},
  };
  for (const auto& [held, text] : cases) {
    Fleet fleet;
    fleet.UsePlan("label\na\nb\n");
    fleet.tables.rows = {held, {2, "b", "", RowState::Free, "", ""}};
    fleet.AddRadio("R-1");
    fleet.when = {PortState::Identifying, [](Fleet& both) { both.state->Rows().Hold(1, 1, "COM2"); }};
    fleet.Run();
    ASSERT_EQ(fleet.Outcomes(), "no row");
    EXPECT_EQ(fleet.tables.attempts[0].text, text);
  }
}

TEST(FleetTest, EntriesThatALostDatabaseMissesAreAddedLater) {
  Fleet fleet;
  fleet.UsePlan(TwoRows);
  fleet.AddRadio("R-1");
  fleet.AddRadio("R-2");
  fleet.when = {PortState::BackingUp, [](Fleet& lost) { lost.tables.isLost = true; }};
  fleet.stopsWithoutRadios = false;
  std::string conflict;
  fleet.events.onConflict = [&](const Attempt& attempt) { conflict = LineForConflict(attempt); };
  fleet.events.onStatus = [&, show = fleet.events.onStatus](const PortStatus& status) {
    show(status);
    if (status.state != PortState::NoJournal) return;
    fleet.tables.isLost = false;
    fleet.tables.isFullOnce = true;                                        // after it has taken the entry
    fleet.tables.rows[0] = {1, "Truck 1", "", RowState::Done, "B", "R-9"}; // in the meantime
  };
  fleet.Run();
  const std::string found = "WAITING, IDENTIFYING, ", steps = "BACKUP, WRITING, VERIFYING, UNPLUG, ";
  EXPECT_EQ(fleet.States(), found + steps + found + "NO JOURNAL, " + steps + "FINISHED") << "until it has a row";
  EXPECT_EQ(fleet.Outcomes(), "conflict, verified");
  EXPECT_EQ(conflict,
            "Two radios have one row, or one radio has two rows: row 1, Truck 1, radio R-1, but radio R-9 holds "
            "the row. Reprogram one of them");
  EXPECT_TRUE(fleet.Holds("R-1", 1) && fleet.Holds("R-2", 2));
}

TEST(FleetTest, PendingAttemptsOutliveTheirProcess) {
  Fleet fleet;
  fleet.tables.isLost = true;
  MemoryJournal journal(fleet.tables);
  const std::string path = fleet.folder + "/state/pending";
  const auto attempt = [](const std::string& key) {
    Attempt made;
    made.key = made.text = key;
    made.outcome = AttemptOutcome::SetAside;
    return made;
  };
  {
    PendingAttempts first(fleet.files, path), second(fleet.files, path);
    first.Enter(journal, attempt("=1 \"quoted\", text\nof two lines"));
    second.Enter(journal, attempt("b"));
    EXPECT_TRUE(first.IsKept() && second.IsKept());
    EXPECT_EQ(PendingAttempts(fleet.files, path).Count(), 0); // they are in use
  }
  const auto one = std::filesystem::path(path + "-1.csv");
  std::filesystem::permissions(one, std::filesystem::perms(0400)); // refused even to the superuser
  EXPECT_FALSE(PendingAttempts(fleet.files, path).IsKept());
  EXPECT_FALSE(IsMissing(fleet.files, path + "-2.csv")) << "the entries of the two are in no other file";
  std::filesystem::permissions(one, std::filesystem::perms(0600));
  Attempt cut = attempt("c");
  cut.operatorName = "a,b"; // the last column
  const std::string csv = AttemptsCsv({cut}, CsvUse::ForParsing);
  std::ofstream(path + "-3.csv") << csv.substr(0, csv.rfind('"'));
  PendingAttempts later(fleet.files, path);
  EXPECT_EQ(later.Count(), 2);
  EXPECT_FALSE(later.EnterPending(journal));
  fleet.tables.isLost = false;
  EXPECT_TRUE(later.EnterPending(journal));
  EXPECT_EQ(fleet.tables.attempts, (std::vector{attempt("=1 \"quoted\", text\nof two lines"), attempt("b")}));
  EXPECT_EQ(PendingAttempts(fleet.files, path).Count(), 0);
  EXPECT_TRUE(IsMissing(fleet.files, path + "-1.csv") && IsMissing(fleet.files, path + "-2.csv"));
  EXPECT_FALSE(IsMissing(fleet.files, path + "-3.csv")) << "what can't be read stays";
}

// A count of radios may be complete at another port.
TEST(FleetTest, APortThatWaitsEndsAsSoonAsTheBench) {
  Fleet fleet;
  fleet.UsePlan(std::nullopt);
  fleet.stopsWithoutRadios = false;
  Cable& cable = fleet.cables.front();
  std::optional<Clock::Moment> end;
  cable.onWait = [&] {
    if (!end) end = cable.Now();
    fleet.state->StopAfterTheseRadios();
  };
  fleet.Run();
  EXPECT_LE(cable.Now() - end.value(), 100ms);
}

TEST(FleetTest, APortThatCannotBeCreatedAffectsNoOther) {
  Fleet fleet;
  fleet.UsePlan(TwoRows);
  PendingAttempts pending(fleet.files, fleet.folder + "/pending");
  const auto broken = []() -> std::unique_ptr<SerialPort> { throw std::runtime_error("no driver"); };
  const auto cable = [&] {
    auto port = std::make_unique<Cable>();
    port->openFailure = "none";
    return port;
  };
  fleet.when = {PortState::NoPort, [](Fleet& whole) { whole.state->StopAfterTheseRadios(); }};
  fleet.cables.clear();
  Bench(fleet.Context(pending), {{"COM1", cable, cable}, {"COM2", broken, cable}}, [&] {
    return std::make_unique<MemoryJournal>(fleet.tables);
  }).Wait();
  const auto stopped = std::ranges::find(fleet.shown, PortState::Stopped, &PortStatus::state);
  EXPECT_TRUE(stopped != fleet.shown.end() && stopped->port == 1 && stopped->text == "no driver");
  EXPECT_NE(fleet.States().find("FINISHED"), std::string::npos);
}

} // namespace
} // namespace mr4500x
