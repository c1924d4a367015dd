// How a plan begins in its journal: compared with what is there already, so that no row is given out again unasked.
#pragma once

#include "fleet_session.h"
#include "plan_changes.h"

namespace mr4500x {

struct PlanStart {
  bool isEntered = false;   // the bench can begin
  bool hasCompared = false; // the plan is new, and another one with its template is not
  PlanChanges changes;      // then
  std::string lost;         // why the rows that were done before are not known; "": nothing speaks for that
  JournalFailure failure{}; // with an error nothing else counts
  [[nodiscard]] bool NeedsAnswer() const { return !isEntered && failure.error.empty(); }
};

// Whether something is to be decided before the plan can begin.
[[nodiscard]] bool LeavesOpen(const PlanStart& start, EarlierRows chosen);

// Enters the plan's rows in the journal unless the choice leaves open what becomes of earlier ones. Waits while another
// bench begins a plan, and calls `onWait` once then.
[[nodiscard]] PlanStart BeginPlan(FileSystem& files, const FleetChoice& choice, const Plan& plan,
                                  const std::function<void()>& onWait);
// The same without entering anything.
[[nodiscard]] PlanStart ComparePlan(FileSystem& files, const FleetChoice& choice, const Plan& plan);

} // namespace mr4500x
