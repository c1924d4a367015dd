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

// "row 12, Truck 12, radio R12"
std::string NameOf(std::size_t row, const std::string& label, const std::string& idNumber) {
  std::string name = row > 0 ? "row " + std::to_string(row) : "";
  const auto add = [&](const std::string& text) { name += (name.empty() ? "" : ", ") + text; };
  if (!label.empty()) add(label);
  if (!idNumber.empty()) add("radio " + idNumber);
  return name;
}

// Those that are not empty: "COM1: row 12: failed"
std::string LineOf(std::initializer_list<std::string_view> parts) {
  std::string line;
  for (const std::string_view part : parts)
    if (!part.empty()) line += (line.empty() ? "" : ": ") + std::string(part);
  return line;
}

// The columns that are plain texts, after row and outcome. A database has other names for some, which are words of its
// own language.
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

std::optional<AttemptOutcome> OutcomeNamed(std::string_view word) {
  const auto found = std::ranges::find(Outcomes, word);
  if (found == Outcomes.end()) return std::nullopt;
  return static_cast<AttemptOutcome>(found - Outcomes.begin());
}

std::string_view WordFor(RowState state) {
  constexpr std::array<std::string_view, 3> Words = {"free", "taken", "done"};
  return Words[static_cast<std::size_t>(state)];
}

std::string ReasonFor(const ExchangeResult& result) {
  const bool isWrite = result.transfer == Transfer::Write || result.transfer == Transfer::WriteInfo;
  switch (result.outcome) {
  case Outcome::Complete:
    return "";
  case Outcome::PortNotOpened:
    return "the port can't be opened" + (result.systemDescription.empty() ? "" : ": " + result.systemDescription);
  case Outcome::NoResponse:
    return "the radio does not answer";
  case Outcome::WrongModel:
    return "the radio is another model";
  case Outcome::BandDeclined:
    return "the radio has another band";
  default:
    return isWrite ? "the writing broke off; the radio holds only a part of it" : "the reading broke off";
  }
}

std::string LineFor(const PortEvent& event, std::string_view portName) {
  const StateWords& words = States[static_cast<std::size_t>(event.state)];
  std::string name = NameOf(event.row, event.label, event.idNumber);
  if (event.state == PortState::Finished) name.clear(); // its last radio has nothing to do with that
  return LineOf({portName, name, words.sentence, event.text});
}

std::string LineFor(const Attempt& attempt) {
  const std::string name = NameOf(attempt.row, attempt.label, attempt.idNumber);
  return attempt.start + "  " + LineOf({attempt.port, name, WordFor(attempt.outcome), attempt.text});
}

std::string LineForConflict(const Attempt& attempt) {
  return "Another radio got the row, too: " + NameOf(attempt.row, attempt.label, attempt.idNumber) +
         ". Write one of them anew";
}

std::string LineForPending(std::size_t count) {
  return count == 1 ? "1 entry waits for the journal; the next start hands it in."
                    : std::to_string(count) + " entries wait for the journal; the next start hands them in.";
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
  for (const auto& [line, cells, isWhole, place] : ReadCsv(csv).rows) {
    const auto outcome = cells.size() < 2 ? std::nullopt : OutcomeNamed(cells[1]);
    if (!isWhole || cells.size() != TextColumns.size() + 2 || !outcome) continue; // the heading, too
    Attempt& attempt = attempts.emplace_back();
    attempt.row = static_cast<std::size_t>(ParseWhole(cells[0]).value_or(0));
    attempt.outcome = *outcome;
    for (std::size_t i = 0; i < TextColumns.size(); ++i)
      attempt.*TextColumns[i].text = cells[i + 2];
  }
  return attempts;
}

} // namespace mr4500x
