// What people ask of a journal and decide in it: about one radio, about a row, and how the work goes.
#pragma once

#include "fleet_session.h"
#include "open_radios.h"

#include <string>
#include <variant>
#include <vector>

namespace mr4500x {

struct RowDecision {
  AttemptOutcome outcome = AttemptOutcome::Note; // Freed, Reissued, Note or Dismissed
  std::string plan;                              // its key
  std::size_t row = 0;                           // 0: about the radio
  std::string text, operatorName;
  std::string idNumber{}; // of the radio. A row is freed or reissued only if this radio has it; "": any radio
};
// Changes the row as decided, and returns the entry about it. Nothing else of the journal is changed or deleted.
[[nodiscard]] std::variant<Attempt, JournalFailure> Decide(FileSystem& files, const std::string& address,
                                                           const RowDecision& decision);

enum class PlanChoice : std::uint8_t { One, AnyOrAll };
// The key of the only plan whose key begins so. If `begin` is empty: for One the plan that was begun last, if all have
// the same template, and for AnyOrAll "".
[[nodiscard]] std::variant<std::string, JournalFailure> FindPlan(const std::string& address, const std::string& begin,
                                                                 PlanChoice choice);

// Whether the attempt is about the radio. Blanks at the end of a number do not count.
[[nodiscard]] bool IsOfRadio(const Attempt& attempt, const std::string& idNumber);
// The rows of earlier lists of the plan's template that are outdated. For "" the plan that was begun last.
[[nodiscard]] std::vector<JournalRow> OutdatedRowsOf(Journal& journal, const std::string& plan);

// The radios of all computers that a person still has to deal with, and those that may be only partly programmed.
[[nodiscard]] std::vector<std::string> LinesForOpen(const std::vector<Attempt>& attempts);

// All that is known of a radio, a line each. The attempts are those of all plans.
[[nodiscard]] std::vector<std::string> LinesForRadio(const std::vector<Attempt>& attempts, const std::string& idNumber);

// The radios and commands of this computer that a person still has to deal with.
[[nodiscard]] OpenRadios OpenRadiosOf(const std::vector<Attempt>& attempts);

// What one port of a computer did on one day.
struct PortDay {
  std::string day; // "2026-11-25", where this computer is
  std::string computer, port;
  int verified = 0, failed = 0; // attempts; conflicts and aborted ones count as failed
  double seconds = 0;           // the mean time of the verified ones
  [[nodiscard]] double Yield() const { return static_cast<double>(verified) / (verified + failed); }
};
[[nodiscard]] std::vector<PortDay> StatisticsOf(const std::vector<Attempt>& attempts);
// A heading and a line each, with columns of equal width.
[[nodiscard]] std::vector<std::string> LinesForStatistics(const std::vector<PortDay>& statistics);

} // namespace mr4500x
