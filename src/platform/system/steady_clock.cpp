#include "steady_clock.h"

#include <cerrno>
#include <ctime>

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace mr4500x {

SteadyClock::SteadyClock() {
#ifdef __linux__
  // By default Linux may wake a sleeper 50 us late to save power, which adds up over hundreds of waits.
  constexpr unsigned long SlackNanoseconds = 1000;
  prctl(PR_SET_TIMERSLACK, SlackNanoseconds, 0UL, 0UL, 0UL);
#endif
}

Clock::Moment SteadyClock::Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return std::chrono::duration_cast<Moment>(std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec));
}

void SteadyClock::WaitUntil(Moment moment) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(moment);
  timespec deadline{};
  deadline.tv_sec = static_cast<time_t>(seconds.count());
  deadline.tv_nsec = static_cast<long>(std::chrono::nanoseconds(moment - seconds).count());
  while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &deadline, nullptr) == EINTR) {
  }
}

} // namespace mr4500x
