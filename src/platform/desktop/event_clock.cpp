#include "event_clock.h"

#include "transfer_guard.h"

#include <QCoreApplication>

#include <algorithm>

namespace mr4500x {

using namespace std::chrono_literals;

// Each slice begins with the pending events and sleeps for the rest, so that a wait always ends in a sleep, on time.
// Waits shorter than RoomForEvents process no events.
constexpr Clock::Moment Slice = 10ms;
constexpr Clock::Moment RoomForEvents = 5ms;

void EventClock::WaitUntil(Moment moment) {
  while (m_input.IsHeld() && moment - Now() >= RoomForEvents) {
    const Moment next = std::min(moment, Now() + Slice);
    QCoreApplication::processEvents();
    m_steady.WaitUntil(next);
  }
  m_steady.WaitUntil(moment);
}

} // namespace mr4500x
