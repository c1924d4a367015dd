#include "fleet_command.h"

#include "attempt_records.h"
#include "end_signals.h"
#include "file_access.h"
#include "file_commands.h"
#include "open_radios.h"
#include "output.h"
#include "plan_start.h"
#include "sql_journal.h"
#include "text.h"
#include "tone_codes.h"
#include "words.h"

#include <QEventLoop>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <ostream>
#include <sstream>

namespace mr4500x {
namespace {

constexpr std::size_t MostRadios = 10; // that a question names

// False, with a message, unless there are ports and none is given twice.
bool FindPorts(FileSystem& files, const std::string& settingsFile, FleetArguments& arguments, Terminal& terminal) {
  std::vector<PortAddress>& ports = arguments.choice.ports;
  std::istringstream list(arguments.ports);
  for (std::string text; std::getline(list, text, ',');) {
    if (text == "all")
      std::ranges::copy(PortsWithDevice(files, settingsFile), std::back_inserter(ports));
    else
      ports.push_back(*ParsePortAddress(text));
  }
  // In the order of their numbers, as the rows go out; devices come last.
  std::ranges::stable_sort(ports, {},
                           [](const PortAddress& port) { return port.number == 0 ? PortCount + 1 : port.number; });
  std::map<std::string, std::string> names; // by device
  for (const PortAddress& port : ports) {
    const std::string name = DisplayName(port), device = DeviceOf(files, settingsFile, port);
    const auto [first, isNew] = names.try_emplace(device.empty() ? name : device, name);
    const bool isSame = first->second == name;
    if (!isNew)
      terminal.err << name << (isSame ? " is given twice\n" : " and " + first->second + " are the same port\n");
  }
  if (ports.empty()) terminal.err << "No port has a device; mr4500x-cli ports lists them.\n";
  return !ports.empty() && names.size() == ports.size();
}

struct FleetEnd {
  bool isComplete;
  std::string bench;
};

// Prints what becomes of the rows that radios hold from an earlier list.
void PrintChanges(const PlanStart& start, EarlierRows chosen, std::ostream& out) {
  const bool startsOver = chosen == EarlierRows::StartOver;
  if (startsOver && start.hasCompared)
    out << "Starting over: " << start.changes.carriedOver << " done not carried over\n";
  else if (start.hasCompared)
    out << LineForChanges(start.changes) << '\n';
  else if (startsOver)
    out << (start.lost.empty() ? "There is no earlier list, or it is the same: --start-over has no effect.\n"
                               : "Starting over: rows that radios hold may be given out again.\n");
  for (const std::string& line : LinesForOutdated(start.changes.outdated, MostRadios))
    out << line << '\n';
}

// What a user has to choose who can't be asked.
std::string OptionsFor(const PlanStart& start) {
  return start.lost.empty() ? "Use --carry-over or --start-over.\n" : "Use --start-over to start over.\n";
}

// Prints what is to be decided about earlier rows. Returns what the user answers, Ask without an answer.
EarlierRows AskAboutEarlier(const PlanStart& start, Terminal& terminal) {
  const bool isLost = !start.lost.empty();
  for (const std::string& line : LinesForOutdated(start.changes.outdated, MostRadios))
    terminal.err << line << '\n';
  terminal.err << (isLost ? start.lost : "The list has changed: " + LineForChanges(start.changes) + '.');
  if (!terminal.answersQuestions) {
    terminal.err << ' ' << OptionsFor(start);
    return EarlierRows::Ask;
  }
  terminal.err << (isLost ? "\nStart over? (y/n) " : "\nCarry these over, start over, or quit? (c/s/q) ") << std::flush;
  std::string line;
  std::getline(terminal.in, line);
  const std::string answer = Lower(std::string(Trimmed(line, " \t\r")));
  const auto is = [&](std::string_view word) { return !answer.empty() && word.starts_with(answer); };
  if (is(isLost ? "yes" : "start over")) return EarlierRows::StartOver;
  return !isLost && is("carry over") ? EarlierRows::CarryOver : EarlierRows::Ask;
}

// Whether backups and traces can be stored. Otherwise prints a message.
bool HasFolders(FileSystem& files, const FleetChoice& choice, Terminal& terminal) {
  const std::string backups = BackupFolderOf(choice);
  const FileResult mayKeep = MayStoreIn(files, backups);
  if (!mayKeep) Fail(terminal, BackupReason(backups, mayKeep.Reason()));
  std::string trace;
  const FileResult mayTrace = MayStoreTraces(files, choice, trace);
  if (!mayTrace) Fail(terminal, trace + ": the traces could not be written" + ReasonOf(mayTrace));
  return mayKeep && mayTrace;
}

// Prints the state of the plan. A journal that does not exist yet has no rows of it.
ExitStatus CheckPlan(FileSystem& files, const Plan& plan, const FleetChoice& choice, Terminal& terminal) {
  const std::string address = JournalOf(choice);
  PlanStart start = ComparePlan(files, choice, plan);
  if (start.failure.error.empty()) start.failure = WhyNotEntered(files, address);
  if (!start.failure.error.empty()) return NoAnswer(address, start.failure, terminal);
  PrintChanges(start, choice.earlier, terminal.out);
  if (!start.lost.empty() && choice.earlier != EarlierRows::StartOver) Fail(terminal, start.lost);
  const auto count = [&](RowState state) {
    return static_cast<std::size_t>(std::ranges::count(start.changes.rows, state, &JournalRow::state));
  };
  const std::size_t givenOut = choice.earlier == EarlierRows::StartOver ? start.changes.carriedOver : 0;
  const std::size_t done = count(RowState::Done) - givenOut, taken = count(RowState::Taken);
  const std::size_t used = std::min(plan.rows.size(), done + taken), free = plan.rows.size() - used;
  terminal.out << (plan.isEndless ? "every radio gets the template" : std::to_string(plan.rows.size()) + " rows")
               << ": " << done << " done, " << taken << " taken";
  if (!plan.isEndless) terminal.out << ", " << free << " free";
  terminal.out << '\n';
  const ExitStatus printed = PrintData(terminal);
  const std::size_t available = choice.rewritesDone ? free + done : free;
  const bool areTooFew = !plan.isEndless && choice.count > static_cast<int>(available);
  if (areTooFew) terminal.err << "Rows are free for " << available << " of " << choice.count << " requested radios.\n";
  const bool leavesOpen = LeavesOpen(start, choice.earlier);
  if (leavesOpen) terminal.err << OptionsFor(start);
  return areTooFew || leavesOpen ? ExitStatus::Failed : printed;
}

// The line below the others on a terminal.
class ProgressLine {
public:
  ProgressLine(const Plan& plan, const FleetChoice& choice, Terminal& terminal) : m_terminal(terminal) {
    if (!terminal.showsProgress) return;
    m_progress.total = choice.count >= 0 ? static_cast<std::size_t>(choice.count) : plan.rows.size();
    const auto rows =
        choice.count >= 0 ? std::nullopt : OpenJournal(JournalOf(choice), JournalUse::List)->Rows(plan.key);
    if (rows) m_before = static_cast<std::size_t>(std::ranges::count(*rows, RowState::Done, &JournalRow::state));
  }

  void Clear() {
    if (m_terminal.showsProgress) m_terminal.err << "\r\x1b[K" << std::flush;
  }
  void Show(const FleetTally& tally, std::size_t failed) {
    if (!m_terminal.showsProgress || tally.HasStopped()) return;
    const auto own = static_cast<std::size_t>(tally.Done());
    m_progress.done = m_before + own;
    m_progress.failed = failed;
    const std::size_t left = m_progress.total - std::min(m_progress.total, m_progress.done);
    const auto time = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - m_start);
    const long long rest = own == 0 ? 0 : static_cast<long long>(left) * time.count() / static_cast<long long>(own);
    m_progress.minutesLeft = own == 0 || left == 0 ? 0 : rest / 60 + 1;
    m_terminal.err << LineForProgress(m_progress) << std::flush;
  }

private:
  Terminal& m_terminal;
  FleetProgress m_progress;
  std::size_t m_before = 0; // done when the bench began
  std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

// Runs the bench until all its ports have ended.
FleetEnd RunBench(FileSystem& files, const std::string& settingsFile, const std::shared_ptr<const Plan>& plan,
                  const FleetChoice& choice, Terminal& terminal) {
  QEventLoop loop;
  FleetTally tally(choice.ports.size());
  OpenRadios radios;
  bool hasConflict = false;
  ProgressLine progress(*plan, choice, terminal);
  std::unique_ptr<FleetSession> session;
  const auto endIfOver = [&] {
    if (tally.HasStopped() && !session->HasCommands()) loop.quit();
  };
  const auto print = [&](const PortStatus& status) {
    if (tally.Record(status)) {
      progress.Clear();
      terminal.out << LineFor(status, DisplayName(choice.ports[status.port])) << std::endl;
      progress.Show(tally, radios.Failed().size());
    }
    endIfOver();
  };
  const auto record = [&](const Attempt& attempt) {
    radios.Record(attempt);
    if (attempt.outcome == AttemptOutcome::Conflict) hasConflict = true;
  };
  const auto printConflict = [&](const Attempt& attempt) {
    hasConflict = true;
    progress.Clear();
    terminal.out << LineForConflict(attempt) << std::endl;
  };
  const auto printCommand = [&](const Attempt& note) {
    progress.Clear();
    if (!note.text.empty()) terminal.out << LineForCommand(note) << std::endl;
    if (!note.text.empty()) record(note);
    endIfOver();
  };
  // Reports from the ports' threads are printed in this thread.
  const auto inLoop = [&loop](const auto& function) {
    return [&](const auto& report) {
      QMetaObject::invokeMethod(
          &loop, [&function, report] { function(report); }, Qt::QueuedConnection);
    };
  };
  session = std::make_unique<FleetSession>(
      files, settingsFile, plan, choice,
      BenchEvents{.onStatus = inLoop(print), .onConflict = inLoop(printConflict), .onEntered = inLoop(record)},
      inLoop(printCommand));
  const auto stop = [&](int) {
    session->StopBeforeWrites();
    progress.Clear();
    terminal.err << "Stopping after these radios.\n";
  };
  const EndSignalsHeard heard(stop, NextSignal::IsReported);
  loop.exec();
  const bool areTraced = session->EndTraces();
  if (!areTraced) Fail(terminal, choice.traceFolder + ": the traces could not be written");
  terminal.out << "Radios verified: " << tally.Done() << ", not verified: " << radios.Failed().size() << '\n';
  for (const auto& [idNumber, attempt] : radios.Failed())
    terminal.out << "Not verified: " << LineForFailed(attempt) << '\n';
  std::map<std::string, Attempt> partly = radios.PartlyWritten();
  if (const auto all = OpenJournal(JournalOf(choice), JournalUse::List)->Attempts("")) // also of earlier benches
    partly.merge(PartlyWritten(*all));
  for (const auto& [idNumber, attempt] : partly)
    terminal.out << LineForPartlyWritten(attempt) << '\n';
  if (tally.Done() < choice.count)
    terminal.err << "Verified: " << tally.Done() << " of " << choice.count << " requested radios.\n";
  const std::size_t pending = session->PendingCount();
  if (pending > 0) {
    terminal.err << LineForPending(pending) << '\n';
    const std::unique_ptr<Journal> journal = OpenJournal(JournalOf(choice), JournalUse::List);
    if (!journal->Rows(plan->key)) NoAnswer(JournalOf(choice), journal->Failure(), terminal);
  }
  const bool isOpenEnded = plan->isEndless && choice.count < 0;
  const bool isComplete = isOpenEnded ? radios.Failed().empty() : session->IsComplete();
  const bool isGood =
      pending == 0 && !hasConflict && radios.PartlyWritten().empty() && radios.Notes().empty() && areTraced;
  return {isComplete && isGood, session->BenchName()};
}

} // namespace

ExitStatus MayStore(FileSystem& files, const FleetChoice& choice, const std::string& path, Terminal& terminal) {
  if (path.empty() || path == Stream) return ExitStatus::Done;
  if (IsNeeded(choice, path)) return Refuse(terminal, path + ": is used by the same command, so it can't be replaced");
  if (!CheckExport(files, path, terminal)) return ExitStatus::UnusableArguments;
  const FileResult mayStore = MayStoreOutput(files, path);
  return mayStore ? ExitStatus::Done : Fail(terminal, path + ": can't be written" + ReasonOf(mayStore));
}

ExitStatus NoAnswer(const std::string& address, const JournalFailure& failure, Terminal& terminal) {
  Fail(terminal, WithoutPassword(address) + ": " + failure.error);
  if (!failure.details.empty()) terminal.err << "  " << failure.details << '\n';
  return ExitStatus::Failed;
}

ExitStatus RunFleet(FileSystem& files, const std::string& settingsFile, FleetArguments arguments, Terminal& terminal) {
  FleetChoice& choice = arguments.choice;
  const bool needsPorts = !arguments.isDryRun || !arguments.ports.empty();
  if (needsPorts && !FindPorts(files, settingsFile, arguments, terminal)) return ExitStatus::UnusableArguments;
  const std::string twice = FileUsedTwice(choice, IsStandardOutput(arguments.logFile) ? "" : arguments.logFile);
  if (!twice.empty()) return Refuse(terminal, twice + ": is used twice by the same command");
  const ExitStatus mayStore = MayStore(files, choice, arguments.logFile, terminal);
  if (mayStore != ExitStatus::Done) return mayStore;
  const auto check = std::make_shared<const PlanCheck>(LoadPlan(files, choice, BuildFieldTexts('.'), &terminal.in));
  const auto& [plan, problems] = *check;
  for (const std::string& problem : problems)
    Fail(terminal, problem);
  if (!problems.empty()) return ExitStatus::UnusableArguments;
  if (!HasFolders(files, choice, terminal)) return ExitStatus::Failed;
  const std::string address = JournalOf(choice);
  if (arguments.isDryRun) return CheckPlan(files, plan, choice, terminal);
  const auto onWait = [&] { terminal.err << WaitsForBenchText << std::endl; };
  PlanStart start = BeginPlan(files, choice, plan, onWait);
  if (start.NeedsAnswer()) {
    choice.earlier = AskAboutEarlier(start, terminal);
    if (choice.earlier == EarlierRows::Ask) return ExitStatus::Failed;
    start = BeginPlan(files, choice, plan, onWait);
  }
  if (!start.failure.error.empty()) return NoAnswer(address, start.failure, terminal);
  if (!start.isEntered) return ExitStatus::Failed; // something else changed while the user was asked
  PrintChanges(start, choice.earlier, terminal.err);
  Terminal shown{IsStandardOutput(arguments.logFile) ? terminal.err : terminal.out, terminal.err, terminal.in,
                 terminal.answersQuestions, terminal.showsProgress};
  const FleetEnd end = RunBench(files, settingsFile, std::shared_ptr<const Plan>(check, &plan), choice, shown);
  if (!arguments.logFile.empty()) {
    const std::unique_ptr<Journal> journal = OpenJournal(address, JournalUse::List);
    std::optional<std::vector<Attempt>> attempts = journal->Attempts(plan.key);
    if (!attempts) return NoAnswer(address, journal->Failure(), terminal);
    std::erase_if(*attempts, [&](const Attempt& attempt) { return attempt.bench != end.bench; });
    const ExitStatus stored =
        StoreTextForCommand(files, arguments.logFile, AttemptsCsv(*attempts, CsvUse::ForPeople), terminal);
    if (stored != ExitStatus::Done) return stored;
  }
  const ExitStatus printed = PrintData(terminal);
  return end.isComplete ? printed : ExitStatus::Failed;
}

} // namespace mr4500x
