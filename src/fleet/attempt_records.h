// The stored form of attempts: the names of outcomes and columns, for the journal's database and for CSV. Journals
// contain these names, so they never change. They are also shown (words.h).
#pragma once

#include "journal.h"

#include <array>
#include <string_view>

namespace mr4500x {

[[nodiscard]] std::string_view StoredName(AttemptOutcome outcome);
[[nodiscard]] std::optional<AttemptOutcome> OutcomeStoredAs(std::string_view name);

// The text columns, which follow row and outcome, in the order of the CSV.
struct AttemptColumn {
  std::string_view heading; // in CSV
  const char* name;         // in the database, where some headings are reserved words
  std::string Attempt::*text;
};
inline constexpr std::array<AttemptColumn, 15> AttemptColumns = {{
    {"start", "started", &Attempt::start},
    {"end", "ended", &Attempt::end},
    {"label", "label", &Attempt::label},
    {"id_number", "id_number", &Attempt::idNumber},
    {"firmware", "firmware", &Attempt::firmware},
    {"band", "band", &Attempt::band},
    {"port", "port", &Attempt::port},
    {"bench", "bench", &Attempt::bench},
    {"text", "said", &Attempt::text},
    {"backup", "backup", &Attempt::backup},
    {"sha256", "sha256", &Attempt::sha256},
    {"plan", "plan", &Attempt::plan},
    {"key", "attempt_key", &Attempt::key},
    {"stamp", "stamp", &Attempt::stamp}, // these two since version 2
    {"operator", "operator_name", &Attempt::operatorName},
}};

// A heading, then one line per attempt. ParseAttempts reads it back, including version 1, and skips damaged lines.
enum class CsvUse : std::uint8_t {
  ForParsing,
  ForPeople, // a cell that a spreadsheet would run as a formula begins with an apostrophe
};
[[nodiscard]] std::string AttemptsCsv(const std::vector<Attempt>& attempts, CsvUse use);
[[nodiscard]] std::vector<Attempt> ParseAttempts(std::string_view csv);

} // namespace mr4500x
