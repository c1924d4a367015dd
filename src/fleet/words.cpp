#include "words.h"

#include "attempt_records.h"
#include "differences.h"
#include "plan_changes.h"
#include "row_queue.h"
#include "utf8.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace mr4500x {
namespace {

struct StateWords {
  std::string_view word, sentence; // the sentence follows the names of the port, the row and the radio
};
constexpr std::array<StateWords, 14> States = {{
    // in the order of PortState
    {"WAITING", "waiting for a radio"},
    {"IDENTIFYING", "identifying the radio"},
    {"BACKUP", "backing up the radio"},
    {"WRITING", "writing"},
    {"VERIFYING", "reading back"},
    {"UNPLUG", "verified; unplug the radio"},
    {"DONE BEFORE", "done before; unplug the radio"},
    {"FAILED", "failed; unplug the radio"},
    {"SET ASIDE", "set aside; unplug the radio"},
    {"NO ROW", "no free row for this radio; unplug the radio"},
    {"NO PORT", "the port can't be opened"},
    {"NO JOURNAL", "no new rows until the journal answers"},
    {"STOPPED", "stopped after two failures in a row"},
    {"FINISHED", "finished"},
}};

// "row 12, Truck 12, radio R12"
std::string SubjectText(std::size_t row, const std::string& label, const std::string& idNumber) {
  std::string name = row > 0 ? "row " + std::to_string(row) : "";
  const auto add = [&](const std::string& text) { name += (name.empty() ? "" : ", ") + Printable(text); };
  if (!label.empty()) add(label);
  if (!idNumber.empty()) add("radio " + idNumber);
  return name;
}

// Joins the parts that are not empty: "COM1: row 12: failed"
std::string JoinParts(std::initializer_list<std::string_view> parts) {
  constexpr std::size_t MostCharacters = 10'000;
  std::string line;
  for (const std::string_view part : parts)
    if (!part.empty()) line += (line.empty() ? "" : ": ") + Printable(part, MostCharacters);
  return line;
}

} // namespace

std::string_view WordFor(PortState state) {
  return States[static_cast<std::size_t>(state)].word;
}

std::string_view WordFor(AttemptOutcome outcome) {
  return StoredName(outcome);
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
    return isWrite ? "the write was interrupted; the radio is only partly programmed" : "the read was interrupted";
  }
}

std::string OtherBandReason(const std::string& band, const std::string& bandOfRow) {
  return "the radio " + (band.empty() ? "has another band" : "has " + band) + ", but the row is for " + bandOfRow;
}

std::string BackupReason(const std::string& folder, const std::string& systemReason) {
  return folder + ": the backup could not be saved (" + systemReason + "); nothing was written";
}

std::string DifferenceReason(const ImageDifferences& differences) {
  const std::size_t count = differences.settings.size() + differences.bytes.size();
  std::string text = "it does not match what was written: ";
  if (differences.settings.empty())
    text += std::string(NameOf(differences.bytes[0].block)) + ' ' + std::to_string(differences.bytes[0].offset);
  else
    text += NameOf(differences.settings[0].at);
  return count == 1 ? text : text + " and " + std::to_string(count - 1) + " more";
}

std::string OtherRadioReason(const Attempt& attempt, const std::string& idNumber, const std::string& firmware) {
  const bool isOther = idNumber != attempt.idNumber;
  return "the radio was swapped in the meantime: " + (isOther ? attempt.idNumber : "firmware " + attempt.firmware) +
         " was identified, " + (isOther ? idNumber : "firmware " + firmware) + " was read back; check both";
}

std::string AtOtherPortReason(const std::string& portName) {
  return "this number is in use at " + portName;
}

std::string HeldReason(const JournalRow& row) {
  if (row.row == 0) return "";
  const int left = std::clamp(SilentSeconds - std::max(row.silentFor, 0), 0, SilentSeconds), seconds = left % 60;
  return "Wait: held by bench " + row.bench + " for " + std::to_string(left / 60) + (seconds < 10 ? ":0" : ":") +
         std::to_string(seconds);
}

std::string NoFreeRowReason(const RowCounts& counts) {
  if (counts.free > 0) return "the rows that are left went to radios from another list; stop, and start again";
  if (counts.taken + counts.named == 0) return "all rows are done";
  std::string text = "no row is free: " + std::to_string(counts.done) + " done";
  if (counts.taken > 0)
    text += ", " + std::to_string(counts.taken) + " taken, such as row " + std::to_string(counts.firstTaken.row) +
            " by bench " + counts.firstTaken.bench;
  return counts.named == 0 ? text : text + ", " + std::to_string(counts.named) + " only for other radios";
}

std::string ReissuedReason(std::size_t row) {
  return "its row " + std::to_string(row) + " was given out again, perhaps because this radio is broken";
}

std::string_view HintFor(Remedy remedy) {
  constexpr std::pair<Remedy, std::string_view> Hints[] = {
      {Remedy::PlugInAgain, "Plug the radio in again."},
      {Remedy::CheckCable, "Check cable and radio, try again."},
      {Remedy::CheckFolder, "Check backup folder, try again."},
      {Remedy::PutAside, "Put this radio aside."},
      {Remedy::AcceptBand, "Put it aside, or accept its band."},
      {Remedy::RewriteChanged, "Put it aside, or rewrite it."},
      {Remedy::ChooseAgain, "Choose a row, then plug in again."},
      {Remedy::ProgramIt, "Put it aside, or press Program it."},
      {Remedy::ReprogramOne, "Reprogram one of the two."},
      {Remedy::PlugInBoth, "Plug both radios in again."},
      {Remedy::Wait, "The port tries again by itself."},
      {Remedy::GoOn, "Remove the cause, then press Go on."},
  };
  const auto* const hint = std::ranges::find(Hints, remedy, &std::pair<Remedy, std::string_view>::first);
  return hint == std::end(Hints) ? "" : hint->second;
}

std::string ChoiceGoneReason(std::size_t row) {
  return "row " + std::to_string(row) + ", chosen for this radio, is no longer free; choose again";
}

std::string LineForNext(const PortStatus& status, std::string_view portName) {
  if (status.nextRow == 0) return "";
  return "next for " + std::string(portName) + ": " +
         (status.nextLabel.empty() ? "row " + std::to_string(status.nextRow) : status.nextLabel);
}

std::string LineForChoice(const JournalRow* row, std::string_view text) {
  if (row == nullptr) return "There is no row, or more than one, with this label or radio: " + std::string(text);
  const std::string name = SubjectText(row->row, row->label, "") + ": ";
  if (row->state == RowState::Done) return name + "done, by radio " + row->idNumber;
  if (row->state == RowState::Taken) return name + "taken by bench " + row->bench;
  if (!row->radio.empty()) return name + "only for radio " + row->radio + ", at any port";
  return name + "chosen for the next waiting port";
}

std::string LineFor(const PortStatus& status, std::string_view portName) {
  const StateWords& words = States[static_cast<std::size_t>(status.state)];
  std::string name = SubjectText(status.row, status.label, status.idNumber);
  if (status.state == PortState::Finished) name.clear(); // its last radio does not matter here
  if (status.state == PortState::NoRow && !status.text.empty()) return JoinParts({portName, name, status.text});
  const std::string next = LineForNext(status, portName);
  const std::string sentence = std::string(words.sentence) + (next.empty() ? "" : "; ") + next;
  return JoinParts({portName, name, sentence, status.text});
}

std::string LineForFailed(const Attempt& attempt) {
  const std::string radio = attempt.idNumber.empty() ? "a radio" : "radio " + attempt.idNumber;
  const bool isConflict = attempt.outcome == AttemptOutcome::Conflict;
  return JoinParts({radio + ", at " + attempt.port, WordFor(isConflict ? AttemptOutcome::Failed : attempt.outcome),
                    isConflict ? LineForConflict(attempt) : attempt.text});
}

std::string LineFor(const Attempt& attempt) {
  const std::string name = SubjectText(attempt.row, attempt.label, attempt.idNumber);
  const bool hasBoth = !attempt.operatorName.empty() && !attempt.port.empty();
  const std::string where = attempt.operatorName + (hasBoth ? ", " : "") + attempt.port;
  return attempt.start + "  " + JoinParts({where, name, WordFor(attempt.outcome), attempt.text});
}

std::string CommandReason(std::optional<int> status, const std::string& error, std::chrono::seconds limit) {
  return JoinParts({status
                        ? "the command ended with status " + std::to_string(*status)
                        : "the command was ended because it took longer than " + std::to_string(limit.count()) + " s",
                    error});
}

std::string LineForCommand(const Attempt& note) {
  return JoinParts({note.port, SubjectText(note.row, note.label, note.idNumber), note.text});
}

std::string LineForConflict(const Attempt& attempt) {
  return "Two radios have one row, or one radio has two rows: " +
         SubjectText(attempt.row, attempt.label, attempt.idNumber) + ", but " + attempt.text +
         ". Reprogram one of them";
}

std::string LineForPartlyWritten(const Attempt& attempt) {
  return "May be only partly programmed: " + SubjectText(attempt.row, attempt.label, attempt.idNumber);
}

std::string LineForHeld(const Attempt& attempt) {
  return "Holds " + SubjectText(attempt.row, attempt.label, "") + " since " + attempt.start;
}

std::string LineForProgress(const FleetProgress& progress) {
  std::string line = std::to_string(progress.done);
  line += progress.total == 0 ? " done" : " of " + std::to_string(progress.total);
  if (progress.failed > 0) line += ", " + std::to_string(progress.failed) + " failed";
  if (progress.minutesLeft > 0) line += ", " + std::to_string(progress.minutesLeft) + " min left";
  return line;
}

std::string LineForChanges(const PlanChanges& changes) {
  std::string line = std::to_string(changes.carriedOver) + " done carried over, " + std::to_string(changes.unknown) +
                     " new, " + std::to_string(changes.changed) + " changed";
  return changes.open == 0 ? line : line + ", " + std::to_string(changes.open) + " not done";
}

std::vector<std::string> LinesForOutdated(const std::vector<JournalRow>& rows, std::size_t most) {
  std::vector<std::string> lines;
  for (const JournalRow& row : rows) {
    if (lines.size() == most) {
      lines.push_back("... and " + std::to_string(rows.size() - most) + " more");
      break;
    }
    lines.push_back("Holds a row of an earlier list: " + SubjectText(row.row, row.label, row.idNumber));
  }
  return lines;
}

std::string LostReason(const std::string& journal) {
  return "A bench has used the journal " + journal + " before, but it is now missing or empty. Put it back, or start" +
         " over and give all rows out again.";
}

std::string RenamedReason(const std::string& journal) {
  return "This template has the journal " + journal +
         " under another name or in another folder. Choose that journal, or start over and give all rows out again.";
}

std::string ChangedTemplateReason(const std::string& name) {
  return "The template " + name + " has changed, so rows that are done don't carry over. Use the" +
         " earlier template, or start over and give all rows out again.";
}

std::string BusyWithEarlierReason(const std::string& bench) {
  return "Bench " + bench + " is still programming a row of the earlier list. Wait until it has finished.";
}

std::string LineForPending(std::size_t count) {
  return count == 1 ? "1 entry is waiting for the journal; the next start will add it."
                    : std::to_string(count) + " entries are waiting for the journal; the next start will add them.";
}

} // namespace mr4500x
