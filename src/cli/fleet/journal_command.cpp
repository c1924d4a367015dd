// The command that lists a fleet's journal, or changes a row.
#include "arguments.h"
#include "attempt_json.h"
#include "attempt_records.h"
#include "file_commands.h"
#include "fleet_command.h"
#include "journal_queries.h"
#include "sql_journal.h"
#include "utf8.h"
#include "words.h"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <set>

namespace mr4500x {
namespace {

ExitStatus DecideForCommand(FileSystem& files, const std::string& address, const std::string& plan,
                            const FleetArguments& arguments, Terminal& terminal) {
  RowDecision decision = *arguments.decision;
  decision.plan = plan;
  decision.operatorName = arguments.choice.operatorName;
  const auto entered = Decide(files, address, decision);
  if (const auto* const failure = std::get_if<JournalFailure>(&entered)) return NoAnswer(address, *failure, terminal);
  Attempt shown = std::get<Attempt>(entered);
  shown.start = LocalTimestamp(shown.start);
  return PrintData(terminal, LineFor(shown) + '\n', " The row's entry is in the journal.");
}

} // namespace

ExitStatus RunFleetJournal(FileSystem& files, const FleetArguments& arguments, Terminal& terminal) {
  const bool isTemplate = HasDataFileEnding(arguments.listed);
  FleetChoice choice;
  (isTemplate ? choice.templateFile : choice.journal) = arguments.listed;
  const std::string address = JournalOf(choice);
  const ExitStatus mayStore = MayStore(files, choice, arguments.csvFile, terminal);
  if (mayStore != ExitStatus::Done) return mayStore;
  const PlanChoice planChoice = arguments.decision ? PlanChoice::One : PlanChoice::AnyOrAll;
  const auto found = FindPlan(address, arguments.plan, planChoice);
  if (const auto* const failure = std::get_if<JournalFailure>(&found)) return NoAnswer(address, *failure, terminal);
  const std::string& plan = std::get<std::string>(found);
  if (arguments.decision) return DecideForCommand(files, address, plan, arguments, terminal);
  const std::unique_ptr<Journal> journal = OpenJournal(address, JournalUse::List);
  std::optional<std::vector<Attempt>> attempts = journal->Attempts(plan);
  if (!attempts) return NoAnswer(address, journal->Failure(), terminal);
  const auto print = [&](const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
      terminal.out << Printable(line, line.size()) << '\n';
    return PrintData(terminal);
  };
  if (arguments.isStatistics) {
    const std::vector<PortDay> statistics = StatisticsOf(*attempts);
    return arguments.isJson ? PrintData(terminal, StatisticsJson(statistics)) : print(LinesForStatistics(statistics));
  }
  if (!arguments.radio.empty()) {
    if (arguments.csvFile.empty() && !arguments.isJson) return print(LinesForRadio(*attempts, arguments.radio));
    std::erase_if(*attempts, [&](const Attempt& attempt) { return !IsOfRadio(attempt, arguments.radio); });
  }
  if (!arguments.csvFile.empty())
    return StoreTextForCommand(files, arguments.csvFile, AttemptsCsv(*attempts, CsvUse::ForPeople), terminal);
  if (arguments.isJson) return PrintData(terminal, AttemptsJson(*attempts));
  std::set<std::string> plans;
  for (const Attempt& attempt : *attempts)
    plans.insert(attempt.plan);
  for (Attempt shown : *attempts) {
    shown.start = LocalTimestamp(shown.start);
    terminal.out << (plans.size() > 1 ? "plan " + shown.plan.substr(0, 8) + ": " : "") << LineFor(shown) << '\n';
  }
  std::vector<std::string> open = LinesForOpen(*attempts);
  const std::vector<JournalRow> outdated = OutdatedRowsOf(*journal, plan);
  std::ranges::move(LinesForOutdated(outdated, outdated.size()), std::back_inserter(open));
  return print(open);
}

} // namespace mr4500x
