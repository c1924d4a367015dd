#pragma once

#include "clock.h"
#include "steady_clock.h"

namespace mr4500x {

class UserInput;

// The clock of transfers: the steady clock, which processes events in its waits while the user's input is held.
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
