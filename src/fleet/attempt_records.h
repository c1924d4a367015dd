// How attempts are stored: the names of outcomes and columns, for the journal's database and for CSV. Journals keep
// these names, so they never change; words.h has those that are shown.
#pragma once

#include "journal.h"

#include <array>
#include <string_view>

namespace mr4500x {

[[nodiscard]] std::string_view StoredName(AttemptOutcome outcome);
[[nodiscard]] std::optional<AttemptOutcome> OutcomeStoredAs(std::string_view name);

// The columns that are plain texts, after row and outcome, in the order of the CSV.
struct AttemptColumn {
  std::string_view heading; // in CSV
  const char* name;         // in the database, where some headings are words of its own language
  std::string Attempt::*text;
};
inline constexpr std::array<AttemptColumn, 13> AttemptColumns = {{
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
}};

// With a heading, one line an attempt. ParseAttempts reads it back, without lines that are damaged.
[[nodiscard]] std::string AttemptsCsv(const std::vector<Attempt>& attempts);
[[nodiscard]] std::vector<Attempt> ParseAttempts(std::string_view csv);

} // namespace mr4500x
