// Time as the radio exchanges see it.
#pragma once

#include <chrono>

namespace mr4500x {

// A steady clock of its own origin. Waits are to absolute moments, so that their errors do not add up.
class Clock {
public:
  using Moment = std::chrono::microseconds;

  virtual ~Clock() = default;
  [[nodiscard]] virtual Moment Now() = 0;
  virtual void WaitUntil(Moment moment) = 0;
};

} // namespace mr4500x
