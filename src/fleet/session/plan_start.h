// Starts a plan in its journal. Compares it with the existing entries, so that no row is given out again without
// asking.
#pragma once

#include "fleet_session.h"
#include "plan_changes.h"

namespace mr4500x {

struct PlanStart {
  bool isEntered = false;   // the bench can begin
  bool isKnown = false;     // it has begun before
  bool hasCompared = false; // rows may carry over from another plan with its template
  PlanChanges changes;      // valid if hasCompared. ComparePlan lists the rows of each plan
  std::string lost;         // why rows that radios hold may be given out again; "" if there is no sign of that
  JournalFailure failure{}; // if it has an error, nothing else is valid
  [[nodiscard]] bool NeedsAnswer() const { return !isEntered && failure.error.empty(); }
};

// Whether the user has to decide something before the plan can start.
[[nodiscard]] bool LeavesOpen(const PlanStart& start, EarlierRows chosen);

// Enters the plan's rows in the journal, unless the user first has to decide about earlier ones. Waits while another
// bench starts a plan, after calling `onWait` once.
[[nodiscard]] PlanStart BeginPlan(FileSystem& files, const FleetChoice& choice, const Plan& plan,
                                  const std::function<void()>& onWait);
// Does the comparison without entering anything.
[[nodiscard]] PlanStart ComparePlan(FileSystem& files, const FleetChoice& choice, const Plan& plan);

// Why a bench could not enter anything in the journal, without an error if it could. Changes nothing.
[[nodiscard]] JournalFailure WhyNotEntered(FileSystem& files, const std::string& address);

} // namespace mr4500x
