#include "attempt_records.h"

#include "csv.h"
#include "decimal.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::array<std::string_view, 4> OutcomeNames = {"verified", "failed", "set aside", "conflict"};

} // namespace

std::string_view StoredName(AttemptOutcome outcome) {
  return OutcomeNames[static_cast<std::size_t>(outcome)];
}

std::optional<AttemptOutcome> OutcomeStoredAs(std::string_view name) {
  const auto found = std::ranges::find(OutcomeNames, name);
  if (found == OutcomeNames.end()) return std::nullopt;
  return static_cast<AttemptOutcome>(found - OutcomeNames.begin());
}

std::string AttemptsCsv(const std::vector<Attempt>& attempts) {
  std::vector<std::string> heading = {"row", "outcome"};
  for (const AttemptColumn& column : AttemptColumns)
    heading.emplace_back(column.heading);
  std::string csv = CsvLine(heading);
  for (const Attempt& attempt : attempts) {
    std::vector<std::string> cells = {std::to_string(attempt.row), std::string(StoredName(attempt.outcome))};
    for (const AttemptColumn& column : AttemptColumns)
      cells.push_back(attempt.*column.text);
    csv += CsvLine(cells);
  }
  return csv;
}

std::vector<Attempt> ParseAttempts(std::string_view csv) {
  std::vector<Attempt> attempts;
  for (const auto& [line, cells, isWhole, place] : ReadCsv(csv).rows) {
    const auto outcome = cells.size() < 2 ? std::nullopt : OutcomeStoredAs(cells[1]);
    if (!isWhole || cells.size() != AttemptColumns.size() + 2 || !outcome) continue; // also the heading
    Attempt& attempt = attempts.emplace_back();
    attempt.row = static_cast<std::size_t>(ParseWhole(cells[0]).value_or(0));
    attempt.outcome = *outcome;
    for (std::size_t i = 0; i < AttemptColumns.size(); ++i)
      attempt.*AttemptColumns[i].text = cells[i + 2];
  }
  return attempts;
}

} // namespace mr4500x
