#include "steady_clock.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

TEST(SteadyClock, WaitsEndNeverEarlyAndSeldomLate) {
  SteadyClock clock;
  std::vector<Clock::Moment> overshoots;
  Clock::Moment deadline = clock.Now();
  for (int i = 0; i < 51; ++i) {
    deadline += 2ms;
    clock.WaitUntil(deadline);
    overshoots.push_back(clock.Now() - deadline);
  }
  EXPECT_GE(*std::min_element(overshoots.begin(), overshoots.end()), 0us);
  std::sort(overshoots.begin(), overshoots.end());
  EXPECT_LT(overshoots[overshoots.size() / 2], 1ms); // the median: a busy machine may be late at times
}

TEST(SteadyClock, DoesNotWaitForThePast) {
  SteadyClock clock;
  const Clock::Moment before = clock.Now();
  for (const Clock::Moment moment : {before - 1s, Clock::Moment(0), Clock::Moment(-5s)})
    clock.WaitUntil(moment);
  EXPECT_LT(clock.Now() - before, 500ms);
}

} // namespace
} // namespace mr4500x
