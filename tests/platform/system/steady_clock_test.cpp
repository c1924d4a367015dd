#include "steady_clock.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

TEST(SteadyClock, WaitsEndNeverEarlyAndAddNoDelayOfTheirOwn) {
  SteadyClock clock;
  std::vector<Clock::Moment> overshoots(50);
  for (Clock::Moment& overshoot : overshoots) {
    const Clock::Moment deadline = clock.Now() + 2ms;
    clock.WaitUntil(deadline);
    overshoot = clock.Now() - deadline;
  }
  std::sort(overshoots.begin(), overshoots.end());
  EXPECT_GE(overshoots.front(), 0us);
  // The lower ones: a machine that has other work adds to the rest, a clock that is late adds to all.
  EXPECT_LT(overshoots[overshoots.size() / 10], 500us);
}

} // namespace
} // namespace mr4500x
