#include "attempt_records.h"
#include "bench.h"
#include "conventions.h"
#include "data_file.h"
#include "file_access.h"
#include "fleet_fixture.h"
#include "rows.h"

#include <fstream>
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

TEST(FleetTest, ThePortGoesOnAsLongAsItMay) {
  using enum PortState;
  const auto isDone = [](Fleet& fleet, const std::string& stamp) {
    fleet.tables.rows[1] = {2, "", "", RowState::Done, "B", "R-0", stamp};
  };
  const auto vhf = [](Fleet& fleet) { fleet.plan.image.BandBlock[0] = 0xC0; };
  // clang-format off
  const struct {
    const char* name;
    std::string radios; // good, bad (its writes end with NG), noisy, or unnumbered (without an identity number)
    const char *outcomes, *lastStates;
    std::size_t radiosLeft;
    std::function<void(Fleet&)> prepare = {};
    std::pair<PortState, std::function<void(Fleet&)>> when = {}; // the first time
  } cases[] = {
      {"every row done", "good good good", "verified, verified", "UNPLUG, FINISHED", 1},
      {"two failures", "bad good bad bad good", "failed, verified, failed, failed", "FAILED, STOPPED", 1},
      {"no identity number", "unnumbered good", "failed, verified", "UNPLUG, WAITING, FINISHED", 0},
      {"two asked for", "good bad good good", "verified, failed, verified", "UNPLUG, FINISHED", 1,
       [](Fleet& fleet) { fleet.UsePlan({}), fleet.state = std::make_unique<BenchState>(2); }},
      {"one asked for, after another band", "good good good", "set aside, verified", "UNPLUG, FINISHED", 1,
       [&](Fleet& fleet) { fleet.UsePlan({}), vhf(fleet), fleet.state = std::make_unique<BenchState>(1); },
       {SetAside, [](Fleet& fleet) { fleet.plan.image.BandBlock[0] = 0xB8; }}},
      {"one asked for, after a conflict and a failure", "good bad good", "conflict, failed, verified", "UNPLUG, FINISHED", 0,
       [](Fleet& fleet) { fleet.state = std::make_unique<BenchState>(1); },
       {Verifying, [](Fleet& fleet) { fleet.tables.rows[0].bench = "B"; }}},
      {"stopped while writing", "good good", "verified", "UNPLUG, FINISHED", 1,
       {}, {Writing, [](Fleet& fleet) { fleet.state->StopAfterTheseRadios(); }}},
      {"stopped by a signal while writing", "good good", "verified", "UNPLUG, FINISHED", 1,
       {}, {Writing, [](Fleet& fleet) { fleet.state->StopBeforeWrites(); }}},
      {"stopped by a signal during the backup", "good good", "failed", "BACKUP, FAILED, FINISHED", 1,
       {}, {BackingUp, [](Fleet& fleet) { fleet.state->StopBeforeWrites(); }}},
      {"stopped during an identification", "good good", "", "IDENTIFYING, WAITING, FINISHED", 1,
       {}, {Identifying, [](Fleet& fleet) { fleet.state->StopAfterTheseRadios(); }}},
      {"another band", "good", "set aside", "SET ASIDE, WAITING, FINISHED", 0, vhf},
      {"another band accepted", "good good", "verified, verified", "UNPLUG, FINISHED", 0,
       [&](Fleet& fleet) { vhf(fleet), fleet.settings.acceptsOtherBand = true; }},
      {"a row for another radio", "good", "no row", "NO ROW, WAITING, FINISHED", 0, [](Fleet& fleet) { fleet.UsePlan("radio\nX\n"); }},
      {"a radio with a row", "good", "done before", "IDENTIFYING, DONE BEFORE, WAITING, FINISHED", 0, {},
       {Identifying, [=](Fleet& fleet) { isDone(fleet, "20240115093000"); }}},
      {"a radio with a row, programmed again since", "good", "set aside", "VERIFYING, SET ASIDE, WAITING, FINISHED", 0,
       {}, {Identifying, [=](Fleet& fleet) { isDone(fleet, "20260101000000"); }}},
      {"the same, and the whole is compared", "good", "set aside", "VERIFYING, SET ASIDE, WAITING, FINISHED", 0,
       [](Fleet& fleet) { fleet.settings.comparesDone = true; },
       {Identifying, [=](Fleet& fleet) { isDone(fleet, "20240115093000"); }}},
      {"the same, and it is written again", "good", "verified", "VERIFYING, UNPLUG, WAITING, FINISHED", 0,
       [](Fleet& fleet) { fleet.settings.rewritesDone = true; }, {Identifying, [=](Fleet& fleet) { isDone(fleet, ""); }}},
      {"a radio with a row whose stamp is unknown, and what it should hold", "good", "done before",
       "VERIFYING, DONE BEFORE, WAITING, FINISHED", 0, [](Fleet& fleet) { fleet.UsePlan("label\na\nb\n"); },
       {Identifying, [=](Fleet& fleet) { isDone(fleet, ""); }}},
      {"another radio than the one that was backed up", "good", "failed", "VERIFYING, FAILED, WAITING, FINISHED", 0,
       {}, {Writing, [](Fleet& fleet) { fleet.cables[0].Exchange("R-9"); }}},
      {"no port at first", "good good", "verified, verified", "UNPLUG, FINISHED", 0,
       [](Fleet& fleet) { fleet.cables[0].openFailure = "busy"; },
       {NoPort, [](Fleet& fleet) { fleet.cables[0].openFailure.reset(); }}},
      {"no journal at first", "good good", "verified, verified", "UNPLUG, FINISHED", 0,
       [](Fleet& fleet) { fleet.tables.isLost = true; },
       {NoJournal, [](Fleet& fleet) { fleet.tables.isLost = false; }}},
      {"a journal that can be read but not written at first", "", "", "WAITING, NO JOURNAL, WAITING, FINISHED", 0,
       [](Fleet& fleet) { fleet.tables.isFull = true; },
       {NoJournal, [](Fleet& fleet) { fleet.tables.isFull = false; }}},
      {"the row taken away", "good", "failed", "FAILED, WAITING, FINISHED", 0,
       {}, {BackingUp, [](Fleet& fleet) { fleet.tables.rows[0].bench = "B"; }}},
      {"another radio than identified", "good", "failed", "FAILED, WAITING, FINISHED", 0,
       {}, {BackingUp, [](Fleet& fleet) { fleet.cables[0].Spoil(0x1F0); }}},
      {"one setting is not what was written", "good", "failed", "FAILED, WAITING, FINISHED", 0,
       {}, {Verifying, [](Fleet& fleet) { fleet.cables[0].Spoil(0x10C); }}},
      {"the text is not what was written", "good", "failed", "FAILED, WAITING, FINISHED", 0,
       {}, {Verifying, [](Fleet& fleet) { fleet.cables[0].Spoil(0x210); }}},
      {"a chosen row that another bench has done", "good good", "set aside, verified", "SET ASIDE, WAITING, IDENTIFYING, BACKUP, "
       "WRITING, VERIFYING, UNPLUG, FINISHED", 0, [](Fleet& fleet) { fleet.state->Rows().Choose(2); },
       {Identifying, [=](Fleet& fleet) { isDone(fleet, ""); }}},
      {"noise", "noisy good", "verified", "VERIFYING, UNPLUG, WAITING, FINISHED", 0},
      {"no room for backups", "good good good", "failed, failed", "FAILED, STOPPED", 1,
       [](Fleet& fleet) { fleet.settings.backupFolder = "/proc/none"; }},
  };
  // clang-format on
  for (const auto& [name, radios, outcomes, lastStates, radiosLeft, prepare, when] : cases) {
    SCOPED_TRACE(name);
    Fleet fleet;
    fleet.UsePlan(TwoRows);
    if (prepare) prepare(fleet);
    fleet.when = when;
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
    EXPECT_EQ(fleet.table.size(), radiosLeft);
    EXPECT_EQ(!fleet.hints.empty(), radios.find("noisy") != std::string::npos);
    for (const PortStatus& status : fleet.shown)
      EXPECT_TRUE(status.row == 0 || (status.state != Failed && status.state != SetAside));
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
  const std::string steps = "IDENTIFYING, BACKUP, WRITING, VERIFYING, UNPLUG, ";
  EXPECT_EQ(fleet.States(), "WAITING, " + steps + "WAITING, IDENTIFYING, NO JOURNAL, WAITING, " + steps + "FINISHED");
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
    first.Enter(journal, attempt("a \"quoted\", text\nof two lines"));
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
  EXPECT_EQ(fleet.tables.attempts, (std::vector{attempt("a \"quoted\", text\nof two lines"), attempt("b")}));
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
  EXPECT_TRUE(stopped != fleet.shown.end() && stopped->port == 1);
  EXPECT_NE(fleet.States().find("FINISHED"), std::string::npos);
}

} // namespace
} // namespace mr4500x
