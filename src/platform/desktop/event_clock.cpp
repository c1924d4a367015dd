#include "event_clock.h"

#include "transfer_guard.h"

#include <QCoreApplication>

#include <algorithm>

namespace mr4500x {

using namespace std::chrono_literals;

// The screen is served at the beginning of each slice, and the rest is slept: the last moment of a wait is always
// met by sleeping. Waits too short for that leave the screen to the next one.
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
