#include "words.h"

#include "csv.h"
#include "decimal.h"

#include <algorithm>
#include <array>

namespace mr4500x {
namespace {

constexpr std::array<std::string_view, 4> Outcomes = {"verified", "failed", "set aside", "conflict"};

struct StateWords {
  std::string_view word, sentence; // the sentence goes on after the names of port, row and radio
};
constexpr std::array<StateWords, 14> States = {{
    // in the order of PortState
    {"WAITING", "waiting for a radio"},
    {"IDENTIFYING", "asking the radio who it is"},
    {"BACKUP", "reading what the radio holds"},
    {"WRITING", "writing"},
    {"VERIFYING", "reading back"},
    {"TAKE OFF", "verified; take the radio off"},
    {"DONE BEFORE", "done before; take the radio off"},
    {"FAILED", "failed; take the radio off"},
    {"SET ASIDE", "set aside; take the radio off"},
    {"NO ROW", "no row is free for it; take the radio off"},
    {"NO PORT", "the port can't be opened"},
    {"NO JOURNAL", "no new rows until the journal answers"},
    {"STOPPED", "stopped after two failures in a row"},
    {"FINISHED", "finished"},
}};

// The columns that are plain texts; the row and the outcome follow.
struct TextColumn {
  std::string_view name;
  std::string Attempt::*text;
};
constexpr std::array<TextColumn, 13> TextColumns = {{
    {"start", &Attempt::start},
    {"end", &Attempt::end},
    {"label", &Attempt::label},
    {"id_number", &Attempt::idNumber},
    {"firmware", &Attempt::firmware},
    {"band", &Attempt::band},
    {"port", &Attempt::port},
    {"bench", &Attempt::bench},
    {"text", &Attempt::text},
    {"backup", &Attempt::backup},
    {"sha256", &Attempt::sha256},
    {"plan", &Attempt::plan},
    {"key", &Attempt::key},
}};

} // namespace

std::string_view WordFor(PortState state) {
  return States[static_cast<std::size_t>(state)].word;
}

std::string_view WordFor(AttemptOutcome outcome) {
  return Outcomes[static_cast<std::size_t>(outcome)];
}

std::string_view WordFor(RowState state) {
  constexpr std::array<std::string_view, 3> Words = {"free", "taken", "done"};
  return Words[static_cast<std::size_t>(state)];
}

std::string LineFor(const PortEvent& event, std::string_view portName) {
  std::string line = std::string(portName) + ": ";
  if (event.row > 0) line += "row " + std::to_string(event.row) + ", ";
  if (!event.label.empty()) line += event.label + ", ";
  if (!event.idNumber.empty()) line += "radio " + event.idNumber + ": ";
  line += States[static_cast<std::size_t>(event.state)].sentence;
  return event.text.empty() ? line : line + ": " + event.text;
}

std::string LineForConflict(const Attempt& attempt) {
  return "Row " + std::to_string(attempt.row) + (attempt.label.empty() ? "" : ", " + attempt.label) + ", radio " +
         attempt.idNumber + ": another radio got the row, too. Write one of them anew";
}

std::string JournalCsv(const std::vector<Attempt>& attempts) {
  std::vector<std::string> heading = {"row", "outcome"};
  for (const TextColumn& column : TextColumns)
    heading.emplace_back(column.name);
  std::string csv = CsvLine(heading);
  for (const Attempt& attempt : attempts) {
    std::vector<std::string> cells = {std::to_string(attempt.row), std::string(WordFor(attempt.outcome))};
    for (const TextColumn& column : TextColumns)
      cells.push_back(attempt.*column.text);
    csv += CsvLine(cells);
  }
  return csv;
}

std::vector<Attempt> AttemptsIn(std::string_view csv) {
  std::vector<Attempt> attempts;
  for (const auto& [line, cells, isWhole] : ReadCsv(csv).rows) {
    const auto outcome =
        static_cast<std::size_t>(cells.size() < 2 ? Outcomes.end() - Outcomes.begin()
                                                  : std::ranges::find(Outcomes, cells[1]) - Outcomes.begin());
    if (!isWhole || cells.size() != TextColumns.size() + 2 || outcome == Outcomes.size()) continue; // the heading, too
    Attempt& attempt = attempts.emplace_back();
    attempt.row = static_cast<std::size_t>(ParseWhole(cells[0]).value_or(0));
    attempt.outcome = static_cast<AttemptOutcome>(outcome);
    for (std::size_t i = 0; i < TextColumns.size(); ++i)
      attempt.*TextColumns[i].text = cells[i + 2];
  }
  return attempts;
}

} // namespace mr4500x
