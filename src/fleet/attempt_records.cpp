#include "attempt_records.h"

#include "csv.h"
#include "decimal.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::array<std::string_view, 12> OutcomeNames = {"verified", "failed",  "set aside", "conflict",
                                                           "begun",    "aborted", "no row",    "done before",
                                                           "note",     "freed",   "reissued",  "dismissed"};
constexpr std::size_t FirstColumns = 2, ColumnsOfVersion1 = 15;

std::string Harmless(const std::string& cell) {
  const bool isFormula = !cell.empty() && std::string_view("=+-@\t\r").find(cell.front()) != std::string_view::npos;
  return isFormula ? '\'' + cell : cell;
}

} // namespace

std::string_view StoredName(AttemptOutcome outcome) {
  return OutcomeNames[static_cast<std::size_t>(outcome)];
}

std::optional<AttemptOutcome> OutcomeStoredAs(std::string_view name) {
  const auto found = std::ranges::find(OutcomeNames, name);
  if (found == OutcomeNames.end()) return std::nullopt;
  return static_cast<AttemptOutcome>(found - OutcomeNames.begin());
}

std::string AttemptsCsv(const std::vector<Attempt>& attempts, CsvUse use) {
  std::vector<std::string> heading = {"row", "outcome"};
  for (const AttemptColumn& column : AttemptColumns)
    heading.emplace_back(column.heading);
  std::string csv = CsvLine(heading);
  for (const Attempt& attempt : attempts) {
    std::vector<std::string> cells = {std::to_string(attempt.row), std::string(StoredName(attempt.outcome))};
    for (const AttemptColumn& column : AttemptColumns)
      cells.push_back(use == CsvUse::ForPeople ? Harmless(attempt.*column.text) : attempt.*column.text);
    csv += CsvLine(cells);
  }
  return csv;
}

std::vector<Attempt> ParseAttempts(std::string_view csv) {
  std::vector<Attempt> attempts;
  for (const auto& [line, cells, isWhole, place] : ReadCsv(csv).rows) {
    const auto outcome = cells.size() < 2 ? std::nullopt : OutcomeStoredAs(cells[1]);
    const bool hasColumns = cells.size() == ColumnsOfVersion1 || cells.size() == AttemptColumns.size() + FirstColumns;
    if (!isWhole || !hasColumns || !outcome) continue; // also the heading
    Attempt& attempt = attempts.emplace_back();
    attempt.row = static_cast<std::size_t>(ParseWhole(cells[0]).value_or(0));
    attempt.outcome = *outcome;
    for (std::size_t i = 0; i + FirstColumns < cells.size(); ++i)
      attempt.*AttemptColumns.at(i).text = cells[i + FirstColumns];
  }
  return attempts;
}

} // namespace mr4500x
