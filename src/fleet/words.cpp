#include "words.h"

#include "differences.h"

#include <array>

namespace mr4500x {
namespace {

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
std::string SubjectText(std::size_t row, const std::string& label, const std::string& idNumber) {
  std::string name = row > 0 ? "row " + std::to_string(row) : "";
  const auto add = [&](const std::string& text) { name += (name.empty() ? "" : ", ") + text; };
  if (!label.empty()) add(label);
  if (!idNumber.empty()) add("radio " + idNumber);
  return name;
}

const std::string PartlyWrittenWords = "May hold only a part of a configuration: ";

// Those that are not empty: "COM1: row 12: failed"
std::string JoinParts(std::initializer_list<std::string_view> parts) {
  std::string line;
  for (const std::string_view part : parts)
    if (!part.empty()) line += (line.empty() ? "" : ": ") + std::string(part);
  return line;
}

} // namespace

std::string_view WordFor(PortState state) {
  return States[static_cast<std::size_t>(state)].word;
}

std::string_view WordFor(AttemptOutcome outcome) {
  constexpr std::array<std::string_view, 8> Words = {"verified", "failed",  "set aside", "conflict",
                                                     "begun",    "aborted", "no row",    "done before"};
  return Words[static_cast<std::size_t>(outcome)];
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

std::string OtherBandReason(const std::string& band, const std::string& bandOfRow) {
  return "the radio " + (band.empty() ? "answers with another band" : "has " + band) + ", the row is for " + bandOfRow;
}

std::string BackupReason(const std::string& folder, const std::string& systemReason) {
  return folder + ": the backup can't be kept here (" + systemReason + "); nothing has been written";
}

std::string DifferenceReason(const ImageDifferences& differences) {
  const std::size_t count = differences.settings.size() + differences.bytes.size();
  std::string text = "it does not hold what was written: ";
  if (differences.settings.empty())
    text += std::string(NameOf(differences.bytes[0].block)) + ' ' + std::to_string(differences.bytes[0].offset);
  else
    text += NameOf(differences.settings[0].at);
  return count == 1 ? text : text + " and " + std::to_string(count - 1) + " more";
}

std::string OtherRadioReason(const Attempt& attempt, const std::string& idNumber, const std::string& firmware) {
  const bool isOther = idNumber != attempt.idNumber;
  return "the radio was exchanged in the meantime: " + (isOther ? attempt.idNumber : "firmware " + attempt.firmware) +
         " was identified, " + (isOther ? idNumber : "firmware " + firmware) + " was read back; look at both";
}

std::string HeldReason(const JournalRow& row) {
  return row.row == 0 ? "" : "bench " + row.bench + " has row " + std::to_string(row.row) + " for its number";
}

std::string LineFor(const PortStatus& status, std::string_view portName) {
  const StateWords& words = States[static_cast<std::size_t>(status.state)];
  std::string name = SubjectText(status.row, status.label, status.idNumber);
  if (status.state == PortState::Finished) name.clear(); // its last radio has nothing to do with that
  return JoinParts({portName, name, words.sentence, status.text});
}

std::string LineFor(const Attempt& attempt) {
  const std::string name = SubjectText(attempt.row, attempt.label, attempt.idNumber);
  return attempt.start + "  " + JoinParts({attempt.port, name, WordFor(attempt.outcome), attempt.text});
}

std::string LineForConflict(const Attempt& attempt) {
  return "Two radios for a row, or two rows for a radio: " + SubjectText(attempt.row, attempt.label, attempt.idNumber) +
         ", but " + attempt.text + ". Write one of them again";
}

std::string LineForPartlyWritten(const PortStatus& status) {
  return PartlyWrittenWords + SubjectText(status.row, status.label, status.idNumber);
}

std::string LineForPartlyWritten(const Attempt& attempt) {
  return PartlyWrittenWords + SubjectText(attempt.row, attempt.label, attempt.idNumber);
}

std::string LineForPending(std::size_t count) {
  return count == 1 ? "1 entry waits for the journal; the next start hands it in."
                    : std::to_string(count) + " entries wait for the journal; the next start hands them in.";
}

} // namespace mr4500x
