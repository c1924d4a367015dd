// A running bench with what it needs, for the window and the command line: its plan from files, its ports, its journal
// and its pending attempts.
#pragma once

#include "bench.h"
#include "fleet_choice.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace mr4500x {

// The journal's address; a file's is its whole path.
[[nodiscard]] std::string JournalOf(const FleetChoice& choice);
// Whether the file is one of those that a bench reads, or its journal: no table may go there.
[[nodiscard]] bool IsNeeded(const FleetChoice& choice, const std::string& path);
[[nodiscard]] std::string BackupFolderOf(const FleetChoice& choice);

// Reads the template and the rows. What can't be read is a problem of the plan. "-" stands for `input`; without one it
// is a file of that name.
[[nodiscard]] PlanCheck LoadPlan(FileSystem& files, const FleetChoice& choice, const FieldTexts& texts,
                                 std::istream* input);

// COM1 to COM16 as far as they have a device.
[[nodiscard]] std::vector<PortAddress> PortsWithDevice(FileSystem& files, const std::string& settingsFile);

// Enters the plan's rows in the journal. Returns why it failed.
[[nodiscard]] std::optional<std::string> EnterPlan(const std::string& address, const Plan& plan);

struct JournalContent {
  std::vector<JournalRow> rows; // of the plan
  std::vector<Attempt> attempts;
  std::string error; // "": it was read
};
[[nodiscard]] JournalContent ReadJournal(const std::string& address, const std::string& plan);

// Its end stops the ports after the radios at hand, and waits for them.
class FleetSession {
public:
  // Starts the ports. Both functions are called in their threads.
  FleetSession(FileSystem& files, const std::string& settingsFile, Plan plan, const FleetChoice& choice,
               std::function<void(const PortEvent&)> tell, std::function<void(const Attempt&)> tellConflict);

  void StopAfterTheseRadios() { m_bench->StopAfterTheseRadios(); }
  [[nodiscard]] const std::string& BenchName() const { return m_desk.bench; }
  // Those that the journal did not take.
  [[nodiscard]] std::size_t PendingCount() { return m_pending.Count(); }

  // Whether all radios are verified that were asked for: by count, or by the rows.
  [[nodiscard]] bool IsComplete() const { return m_hasCount ? m_desk.placesLeft == 0 : m_desk.areRowsDone.load(); }

private:
  const FieldTexts m_texts;
  const Plan m_plan;
  PendingAttempts m_pending;
  const bool m_hasCount;
  FleetDesk m_desk;
  std::unique_ptr<Bench> m_bench;
};

// What the ports of a bench have told so far.
class FleetTally {
public:
  explicit FleetTally(std::size_t ports) : m_last(ports) {}

  // Whether the event is more than progress.
  bool Take(const PortEvent& event);
  [[nodiscard]] bool HasEnded() const;              // all ports
  [[nodiscard]] int Done() const { return m_done; } // radios
  // Radios that were left unverified. One without a row was not asked for.
  [[nodiscard]] std::size_t Failed() const { return m_failed.size(); }

private:
  std::vector<std::optional<PortEvent>> m_last;
  std::set<std::string> m_failed; // identity numbers
  int m_done = 0;
};

[[nodiscard]] constexpr bool IsUnderway(PortState state) { // with a radio that must not be taken off
  return state >= PortState::Identifying && state <= PortState::Verifying;
}
[[nodiscard]] constexpr bool IsGood(PortState state) {
  return state == PortState::Done || state == PortState::AlreadyDone;
}
[[nodiscard]] constexpr bool IsBad(PortState state) {
  return state == PortState::Failed || state == PortState::SetAside || state == PortState::NoRow;
}

} // namespace mr4500x
