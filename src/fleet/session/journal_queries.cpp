#include "journal_queries.h"

#include "attempt_records.h"
#include "file_access.h"
#include "plan_changes.h"
#include "sql_journal.h"
#include "words.h"

#include <QDateTime>
#include <QString>
#include <QSysInfo>

#include <algorithm>
#include <map>
#include <tuple>

namespace mr4500x {
namespace {

std::string TrimmedNumber(const std::string& idNumber) {
  return idNumber.substr(0, idNumber.find_last_not_of(' ') + 1);
}

// Of a bench's name, as FleetSession makes it: without process and random number.
std::string ComputerOf(const std::string& bench) {
  const QStringList parts = QString::fromStdString(bench).split(QLatin1Char('-'));
  return parts.size() < 3 ? bench : parts.mid(0, parts.size() - 2).join(QLatin1Char('-')).toStdString();
}

double SecondsOf(const Attempt& attempt) {
  const auto time = [](const std::string& text) {
    return QDateTime::fromString(QString::fromStdString(text), Qt::ISODate);
  };
  return std::max(0.0, static_cast<double>(time(attempt.start).msecsTo(time(attempt.end))) / 1000);
}

} // namespace

std::variant<Attempt, JournalFailure> Decide(FileSystem& files, const std::string& address,
                                             const RowDecision& decision) {
  const std::string file = FileOfJournal(address);
  if (!file.empty() && IsMissing(files, file)) return JournalFailure{"The journal does not exist."};
  const std::unique_ptr<Journal> journal = OpenJournal(address, JournalUse::Enter);
  auto rows = std::optional(std::vector<JournalRow>{{0, "", "", {}, "", decision.idNumber}});
  if (decision.row > 0) rows = journal->Rows(decision.plan);
  if (!rows) return journal->Failure();
  const auto row = std::ranges::find(*rows, decision.row, &JournalRow::row);
  const std::string name = "Row " + std::to_string(decision.row);
  if (row == rows->end()) return JournalFailure{name + " is not in the plan."};
  using enum AttemptOutcome;
  const bool isOther = (decision.outcome == Freed && row->state != RowState::Taken) ||
                       (decision.outcome == Reissued && row->state != RowState::Done);
  const bool isDecision = decision.outcome == Freed || decision.outcome == Reissued;
  const JournalFailure changed = {name + " has changed in the meantime."};
  if (isDecision && !decision.idNumber.empty() && row->idNumber != decision.idNumber) return changed;
  if (isOther)
    return JournalFailure{name + (decision.outcome == Freed ? " is not taken; it is " : " is not done; it is ") +
                              std::string(WordFor(row->state)) + ".",
                          ""};
  Attempt entry;
  entry.key = NewAttemptKey();
  entry.plan = decision.plan;
  entry.row = decision.row;
  entry.label = row->label;
  entry.idNumber = row->idNumber;
  entry.outcome = decision.outcome;
  entry.text = decision.text;
  entry.operatorName = decision.operatorName;
  entry.start = entry.end = UtcTimestamp();
  const auto entered = journal->Enter(entry);
  if (!entered) return journal->Failure();
  return entered->outcome == decision.outcome ? std::variant<Attempt, JournalFailure>(*entered) : changed;
}

std::variant<std::string, JournalFailure> FindPlan(const std::string& address, const std::string& begin,
                                                   PlanChoice choice) {
  const std::unique_ptr<Journal> journal = OpenJournal(address, JournalUse::List);
  const auto history = journal->History({});
  if (!history) return journal->Failure();
  std::vector<PlanHead> plans = history->plans; // the last begun first
  if (plans.empty()) return JournalFailure{"There is no journal in it."};
  if (begin.empty() && choice == PlanChoice::AnyOrAll) return std::string();
  std::erase_if(plans, [&](const PlanHead& plan) { return !plan.key.starts_with(begin); });
  if (plans.empty()) return JournalFailure{"The journal has no plan with this key."};
  const auto isOfFirst = [&](const PlanHead& plan) {
    return plan.templateKey == plans.front().templateKey && !plan.templateKey.empty();
  };
  const bool isSure = plans.size() == 1 || (begin.empty() && std::ranges::all_of(plans, isOfFirst));
  if (isSure) return plans.front().key;
  std::string names;
  for (const PlanHead& plan : plans)
    names += (names.empty() ? "" : ", ") + plan.key.substr(0, 8) + " (" + plan.name + ')';
  return JournalFailure{"The journal has several plans. Choose one: " + names + '.'};
}

bool IsOfRadio(const Attempt& attempt, const std::string& idNumber) {
  return TrimmedNumber(attempt.idNumber) == TrimmedNumber(idNumber);
}

std::vector<std::string> LinesForOpen(const std::vector<Attempt>& attempts) {
  OpenRadios radios;
  std::ranges::for_each(attempts, [&](const Attempt& attempt) { radios.Record(attempt); });
  std::vector<std::string> lines;
  for (const auto& [radio, attempt] : radios.Failed())
    lines.push_back("Not verified: " + LineForFailed(attempt));
  for (const auto& [radio, attempt] : PartlyWritten(attempts))
    lines.push_back(LineForPartlyWritten(attempt));
  return lines;
}

std::vector<std::string> LinesForRadio(const std::vector<Attempt>& attempts, const std::string& idNumber) {
  std::vector<Attempt> own;
  std::ranges::copy_if(attempts, std::back_inserter(own),
                       [&](const Attempt& attempt) { return IsOfRadio(attempt, idNumber); });
  if (own.empty()) return {"The journal has no entry of radio " + idNumber + '.'};
  // A write takes longer than a second, so one that began in the same second as a reissue came after it.
  std::ranges::stable_sort(own, {}, [](const Attempt& attempt) {
    return std::pair(attempt.start, attempt.outcome != AttemptOutcome::Reissued);
  });
  std::vector<std::string> lines;
  const Attempt* held = nullptr; // the last that it got
  for (Attempt& attempt : own) {
    attempt.start = LocalTimestamp(attempt.start);
    lines.push_back(LineFor(attempt));
    for (const auto& [name, value] : {std::pair("firmware ", attempt.firmware), std::pair("band ", attempt.band),
                                      std::pair("backup ", attempt.backup), std::pair("SHA-256 ", attempt.sha256),
                                      std::pair("plan ", attempt.plan.substr(0, 8))})
      if (!value.empty()) lines.push_back("    " + (name + value));
    using enum AttemptOutcome;
    const bool isWrite = !attempt.sha256.empty() || attempt.outcome == Begun || attempt.outcome == Aborted;
    if (isWrite || attempt.outcome == Reissued) held = attempt.outcome == Verified ? &attempt : nullptr;
  }
  if (held != nullptr) lines.push_back(LineForHeld(*held));
  for (const auto& [radio, attempt] : PartlyWritten(own))
    lines.push_back(LineForPartlyWritten(attempt));
  return lines;
}

std::vector<JournalRow> OutdatedRowsOf(Journal& journal, const std::string& plan) {
  const PlanHistory all = journal.History({}).value_or(PlanHistory());
  const auto head = std::ranges::find_if(all.plans, [&](const PlanHead& each) { return each.key.starts_with(plan); });
  if (head == all.plans.end()) return {};
  return OutdatedRows(journal.Rows(head->key).value_or(std::vector<JournalRow>()),
                      journal.History(*head).value_or(PlanHistory()).rows);
}

OpenRadios OpenRadiosOf(const std::vector<Attempt>& attempts) {
  using enum AttemptOutcome;
  OpenRadios open;
  const std::string computer = QSysInfo::machineHostName().toStdString();
  for (const Attempt& attempt : attempts) {
    const bool isHandled = attempt.outcome == Verified || attempt.outcome == DoneBefore || attempt.outcome == Dismissed;
    if (isHandled || ComputerOf(attempt.bench) == computer) open.Record(attempt);
  }
  return open;
}

std::vector<PortDay> StatisticsOf(const std::vector<Attempt>& attempts) {
  std::map<std::tuple<std::string, std::string, std::size_t, std::string>, PortDay> found; // COM2 before COM10
  for (const Attempt& attempt : attempts) {
    using enum AttemptOutcome;
    const bool isVerified = attempt.outcome == Verified;
    if (!isVerified && attempt.outcome != Failed && attempt.outcome != Conflict && attempt.outcome != Aborted) continue;
    const std::string day = LocalTimestamp(attempt.start).substr(0, 10), computer = ComputerOf(attempt.bench);
    PortDay& one = found[{day, computer, attempt.port.size(), attempt.port}];
    one.day = day;
    one.computer = computer;
    one.port = attempt.port;
    ++(isVerified ? one.verified : one.failed);
    if (isVerified) one.seconds += (SecondsOf(attempt) - one.seconds) / one.verified;
  }
  std::vector<PortDay> days;
  days.reserve(found.size());
  for (const auto& [key, day] : found)
    days.push_back(day);
  return days;
}

std::vector<std::string> LinesForStatistics(const std::vector<PortDay>& statistics) {
  constexpr std::size_t FirstFigure = 3;
  std::vector<std::vector<std::string>> table = {
      {"Day", "Computer", "Port", "Verified", "Failed", "Yield %", "Mean s"}};
  const auto text = [](double number, int digits) { return QString::number(number, 'f', digits).toStdString(); };
  for (const PortDay& day : statistics)
    table.push_back({day.day, day.computer, day.port, std::to_string(day.verified), std::to_string(day.failed),
                     text(100 * day.Yield(), 0), text(day.seconds, 1)});
  std::vector<std::string> lines(table.size());
  for (std::size_t column = 0; column < table.front().size(); ++column) {
    std::size_t width = 0;
    for (const auto& cells : table)
      width = std::max(width, cells[column].size());
    for (std::size_t i = 0; i < table.size(); ++i) {
      const std::string blanks(width - table[i][column].size(), ' ');
      lines[i] += column < FirstFigure ? table[i][column] + blanks + "  " : blanks + table[i][column] + "  ";
    }
  }
  return lines;
}

} // namespace mr4500x
