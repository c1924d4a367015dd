#include "plan_start.h"

#include "file_access.h"
#include "machine.h"
#include "paths.h"
#include "sql_journal.h"
#include "words.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <utility>

namespace mr4500x {
namespace {

constexpr std::size_t LongestAddress = 10'000;

// Remembers which journal this user's benches last used for a template, and the addresses of used journals. These
// records outlive the journal.
std::string MemoryPath(const std::string& templateOrAddress) {
  return UserStateFolder() + "/fleet/" + Sha256Of(templateOrAddress).substr(0, 16) + ".known";
}

std::string RememberedFor(FileSystem& files, const std::string& templateOrAddress) {
  std::vector<std::uint8_t> bytes;
  if (ReadFile(files, MemoryPath(templateOrAddress), LongestAddress, bytes) != ReadOutcome::Read) return {};
  return {bytes.begin(), bytes.end()};
}

// If nothing can be written, nothing is remembered.
void Remember(FileSystem& files, const Plan& plan, const std::string& address) {
  const std::string shown = WithoutPassword(address);
  const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(shown.data()), shown.size());
  for (const std::string& key : {plan.templateKey, shown})
    if (RememberedFor(files, key) != shown && MakeFolderOf(files, MemoryPath(key)))
      static_cast<void>(ReplaceFile(files, MemoryPath(key), bytes, Surplus::Drop));
}

using RowsOf = std::optional<std::vector<JournalRow>>;

bool MayExist(FileSystem& files, const std::string& address) {
  const std::string file = FileOfJournal(address);
  return file.empty() || !IsMissing(files, file);
}

std::string LostJournal(FileSystem& files, const FleetChoice& choice, const Plan& plan, const PlanHistory& history) {
  const std::string address = WithoutPassword(JournalOf(choice));
  if (history.plans.empty() && !RememberedFor(files, address).empty()) return LostReason(address);
  if (std::ranges::find(history.plans, plan.templateKey, &PlanHead::templateKey) != history.plans.end()) return "";
  const std::string last = RememberedFor(files, plan.templateKey);
  // A copy under the same name in another folder is another job.
  const bool isRenamed = choice.journal.empty() && !last.empty() && MayExist(files, last) &&
                         PathOf(last).filename() != PathOf(address).filename();
  if (isRenamed) return RenamedReason(last);
  const std::filesystem::path name = PathOf(plan.name).filename();
  const bool isChanged = !plan.isEndless && std::ranges::any_of(history.plans, [&](const PlanHead& earlier) {
    const bool isThis = choice.journal.empty() || PathOf(earlier.name).filename() == name; // both may be renamed
    return isThis && earlier.isUsed && !earlier.templateKey.empty();
  });
  return isChanged ? ChangedTemplateReason(plan.name) : "";
}

PlanHead HeadOf(const Plan& plan) {
  return {plan.key, plan.name, plan.templateKey, UtcTimestamp()};
}

PlanStart Compare(FileSystem& files, const FleetChoice& choice, const Plan& plan, Journal& journal, bool listsRows) {
  PlanStart start;
  start.changes.rows = JournalRowsOf(plan);
  const auto history = MayExist(files, JournalOf(choice)) ? journal.History(HeadOf(plan)) : PlanHistory{};
  start.isKnown = history && std::ranges::find(history->plans, plan.key, &PlanHead::key) != history->plans.end();
  const bool hasOthers = history && !plan.isEndless && !history->rows.empty();
  const auto entered = start.isKnown && (hasOthers || listsRows) ? journal.Rows(plan.key) : RowsOf(std::in_place);
  if (!history || !entered) {
    start.failure = journal.Failure();
    return start;
  }
  if (plan.isEndless && start.isKnown) start.changes.rows = *entered;
  for (const JournalRow& row : *entered) // a row that is free may have been given out with another list since
    if (row.state != RowState::Free && row.row <= plan.rows.size()) start.changes.rows[row.row - 1] = row;
  if (!start.isKnown) start.lost = LostJournal(files, choice, plan, *history);
  if (!hasOthers) return start;
  start.changes = CompareWithEarlier(std::move(start.changes.rows), history->rows);
  start.hasCompared = !start.isKnown || start.changes.carriedOver > 0;
  const bool isTwice = choice.earlier != EarlierRows::StartOver && !start.changes.busyBench.empty();
  if (isTwice) start.failure.error = BusyWithEarlierReason(start.changes.busyBench);
  return start;
}

} // namespace

bool LeavesOpen(const PlanStart& start, EarlierRows chosen) {
  const bool mustChoose = start.changes.carriedOver > 0 && chosen == EarlierRows::Ask;
  return mustChoose || (!start.lost.empty() && chosen != EarlierRows::StartOver);
}

PlanStart ComparePlan(FileSystem& files, const FleetChoice& choice, const Plan& plan) {
  return Compare(files, choice, plan, *OpenJournal(JournalOf(choice), JournalUse::List), true);
}

PlanStart BeginPlan(FileSystem& files, const FleetChoice& choice, const Plan& plan,
                    const std::function<void()>& onWait) {
  constexpr int MostTries = 20; // of some seconds each
  const std::string address = JournalOf(choice);
  const std::unique_ptr<Journal> journal = OpenJournal(address, JournalUse::Enter);
  for (int tries = 1;; ++tries) {
    PlanStart start = Compare(files, choice, plan, *journal, false);
    const bool isFound = start.failure.error.empty();
    if (isFound && LeavesOpen(start, choice.earlier)) return start;
    if (choice.earlier == EarlierRows::StartOver) start.changes.rows = JournalRowsOf(plan);
    if (start.isKnown && start.changes.carriedOver == 0) start.changes.rows.clear(); // it has them
    if (isFound && journal->Begin(HeadOf(plan), start.changes.rows)) {
      start.isEntered = true;
      start.changes.rows = {};
      Remember(files, plan, address);
      return start;
    }
    if (isFound) start.failure = journal->Failure();
    if (!start.failure.isBusy || tries == MostTries) return start;
    if (tries == 1) onWait();
  }
}

JournalFailure WhyNotEntered(FileSystem& files, const std::string& address) {
  const std::string file = FileOfJournal(address);
  if (file.empty()) return WhyServerNotEntered(address);
  const bool mayWrite = IsMissing(files, file) || files.CanWrite(file);
  if (mayWrite && MayReplace(files, file + "-wal")) return {}; // a bench also writes beside it
  return {"The file of the journal can't be opened."};
}

} // namespace mr4500x
