#pragma once

#include <chrono>

namespace mr4500x {

// A steady clock with an arbitrary epoch. Waits have absolute deadlines so that errors don't accumulate.
class Clock {
public:
  using Moment = std::chrono::microseconds;

  virtual ~Clock() = default;
  [[nodiscard]] virtual Moment Now() = 0;
  virtual void WaitUntil(Moment moment) = 0;
};

struct LocalTime {
  int year, month, day; // four-digit year; month and day from 1
  int hour, minute, second;
};

} // namespace mr4500x
