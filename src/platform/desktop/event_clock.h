// The clock of transfers that run under a window.
#pragma once

#include "clock.h"
#include "steady_clock.h"

namespace mr4500x {

// The machine's steady clock, whose waits serve the screen while a TransferGuard drops the user's input.
class UserInput;

class EventClock final : public Clock {
public:
  explicit EventClock(const UserInput& input) : m_input(input) {}

  [[nodiscard]] Moment Now() override { return m_steady.Now(); }
  void WaitUntil(Moment moment) override;

private:
  const UserInput& m_input;
  SteadyClock m_steady;
};

} // namespace mr4500x
