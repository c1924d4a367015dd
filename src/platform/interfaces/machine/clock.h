#pragma once

#include "local_time.h"

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

} // namespace mr4500x
