// The journal of a fleet records which row of a plan each radio got, and every attempt. Several benches may share it.
// Taking a row is one transaction, so no row is given out twice.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mr4500x {

enum class RowState : std::uint8_t { Free, Taken, Done };

// A row of a plan in the journal.
struct JournalRow {
  std::size_t row = 0; // counted from 1
  std::string label;
  std::string radio; // the only radio for this row; "": any radio that no other row is for
  RowState state = RowState::Free;
  std::string bench;     // the bench that has or did the row
  std::string idNumber;  // identity number of the radio that holds the row
  std::string stamp{};   // the radio's write stamp since; "": unknown
  int silentFor = -1;    // Taken: seconds since the bench was heard of last; negative: unknown
  std::string content{}; // as PlanRow has it; not listed by Rows
  bool operator==(const JournalRow&) const = default;
};

enum class AttemptOutcome : std::uint8_t {
  Verified,
  Failed,
  SetAside,   // it has another band, or it was done and has been changed since
  Conflict,   // verified, but in the meantime another radio got the row, or the radio got another row
  Begun,      // has a row, and may be half written
  Aborted,    // begun, but its bench has died
  NoRow,      // none was free for it
  DoneBefore, // holds its row already
  Note,       // about a radio or a row, or what became of a command for it
  Freed,      // a person has freed a row that a bench had taken
  Reissued,   // or given one out again that was done
  Dismissed,  // or dealt with a radio that needed attention
};

// The job of one radio, from its identification to its end.
struct Attempt {
  std::string key; // unique, so that an attempt that is entered twice is one entry
  std::string plan;
  std::size_t row = 0; // 0: none was taken
  std::string label, idNumber, firmware, band, port, bench;
  std::string start, end; // "2026-11-25 12:45:07Z" in UTC; without the Z in an earlier version's local time
  AttemptOutcome outcome = AttemptOutcome::Failed;
  std::string text;           // a description of what happened
  std::string backup;         // the file with the radio's previous configuration
  std::string sha256;         // of the data file with the written configuration; "" before the write
  std::string stamp{};        // the write stamp that the radio got: "20261125134507"
  std::string operatorName{}; // the user of the bench
  bool operator==(const Attempt&) const = default;
};

struct Claim {
  enum class Kind : std::uint8_t {
    Taken,    // the row is this bench's
    DoneHere, // the radio holds `row` of this plan already
    NoRow,    // no free row for this radio
    Lost,     // the database does not answer
  };
  Kind kind = Kind::Lost;
  JournalRow row;           // Taken, DoneHere; NoRow: the one that a bench has for this number, if that is the reason
  std::size_t reissued = 0; // the row that was this radio's until a person gave it out again
};

struct ClaimRequest {
  bool isEndless = false; // the plan gets a new row when none is free
  bool takesDone = false; // the row that the radio already holds is taken again
  std::size_t row = 0;    // the one that the radio should get if no row names it; 0: the first one that is free
  bool isChosen = false;  // it gets no other one then
  // When the bench began, by the journal's clock; 0: unknown. A row is not given out if a radio has got the same label
  // and content since, from another list of the template.
  std::int64_t begun = 0;
};

struct PlanHead {
  std::string key, name;
  std::string templateKey{}; // as Plan has it; "" for one that an earlier version has begun
  std::string begun{};       // in UTC; "" likewise
  bool isUsed = false;       // a row is taken or done; only known from History
  bool operator==(const PlanHead&) const = default;
};

// What the journal has already when a plan is to begin.
struct PlanHistory {
  std::vector<PlanHead> plans; // all of the journal, the last begun first
  // Of the other plans with the same template. Done only if what the row says was the last that its radio got.
  std::vector<JournalRow> rows;
};

// Rows of a plan, by number.
struct RowList {
  std::vector<JournalRow> rows;
  std::int64_t time = 0; // of the list, by the journal's clock; 0 before the plan begins
};

struct JournalFailure {
  std::string error, details{}; // the details are the database's own message
  bool isBusy = false;          // another bench was using the journal
};

enum class Renewal : std::uint8_t { Kept, TakenAway, Lost };

// A claim is freed when its bench has neither taken nor renewed one for this long.
inline constexpr int SilentSeconds = 120;

// Used by one thread only, for one radio at a time. All calls may block for a few seconds, and may be repeated after a
// failure. The name of a bench must be unique, because a bench treats all entries with its name as its own.
class Journal {
public:
  virtual ~Journal() = default;

  // Enters the plan with its rows. Of those that it has already, the free ones become done if they are done in `rows`.
  // False if the database does not answer; see JournalFailure.
  [[nodiscard]] virtual bool Begin(const PlanHead& plan, const std::vector<JournalRow>& rows) = 0;
  [[nodiscard]] virtual std::optional<PlanHistory> History(const PlanHead& plan) = 0;
  // Takes a row for the attempt's radio, and enters the attempt as begun: the row that names the radio, else the
  // requested one, else the first free one that names none. A row that was taken before and not entered is released.
  [[nodiscard]] virtual Claim ClaimRow(const Attempt& attempt, const ClaimRequest& request) = 0;
  // Reports that the bench is still at the row. Called just before the radio is written.
  [[nodiscard]] virtual Renewal Renew(const std::string& plan, std::size_t row, const std::string& bench) = 0;
  // Enters the attempt once. In the same transaction its row becomes done (Verified) or, if the bench still has it,
  // free. A verified attempt is entered as Conflict if in the meantime another radio has done the row, or the radio has
  // done another row. Its text names them. Freed and Reissued are not entered if the radio does not have the row, and
  // returned as Conflict. Returns the entered attempt, or nullopt if the database does not answer.
  [[nodiscard]] virtual std::optional<Attempt> Enter(const Attempt& attempt) = 0;
  // Reports that the bench is alive. False if the journal can't be written.
  [[nodiscard]] virtual bool ReportAlive(const std::string& bench) = 0;

  // The rows that have changed since the list with this time, and perhaps some more; all rows for 0. Claims of silent
  // benches are shown as free. nullopt if the database does not answer.
  [[nodiscard]] virtual std::optional<RowList> ChangedRows(const std::string& plan, std::int64_t since) = 0;
  [[nodiscard]] std::optional<std::vector<JournalRow>> Rows(const std::string& plan) { // all
    auto list = ChangedRows(plan, 0);
    return list ? std::optional(std::move(list->rows)) : std::nullopt;
  }
  // All attempts of a plan, or of all plans for "", by their start. Attempts that a silent bench has begun are shown as
  // aborted.
  [[nodiscard]] virtual std::optional<std::vector<Attempt>> Attempts(const std::string& plan) = 0;
  [[nodiscard]] virtual JournalFailure Failure() const = 0; // of the last call, if it failed
};

} // namespace mr4500x
