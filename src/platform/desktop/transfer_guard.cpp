#include "transfer_guard.h"

#include <QApplication>
#include <QEvent>
#include <QThread>

#include <algorithm>
#include <array>
#include <utility>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

// Each slice processes the pending events and then sleeps, so that a wait always ends in a sleep, on time. Waits
// shorter than RoomForEvents process no events.
constexpr Clock::Moment Slice = 10ms;
constexpr Clock::Moment RoomForEvents = 5ms;

constexpr unsigned long InputArrivalMilliseconds = 5;

bool IsUserInput(QEvent::Type type) {
  // clang-format off
  static constexpr std::array types = {
    QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick, QEvent::MouseMove,
    QEvent::NonClientAreaMouseButtonPress, QEvent::NonClientAreaMouseButtonRelease,
    QEvent::NonClientAreaMouseButtonDblClick, QEvent::NonClientAreaMouseMove,
    QEvent::Wheel, QEvent::ContextMenu, QEvent::DragEnter, QEvent::DragMove, QEvent::Drop,
    QEvent::KeyPress, QEvent::KeyRelease, QEvent::ShortcutOverride, QEvent::Shortcut, QEvent::InputMethod,
    QEvent::Close, QEvent::Quit,
    QEvent::TouchBegin, QEvent::TouchUpdate, QEvent::TouchEnd, QEvent::NativeGesture,
    QEvent::TabletPress, QEvent::TabletMove, QEvent::TabletRelease,
  };
  // clang-format on
  return std::find(types.begin(), types.end(), type) != types.end();
}

// Lets pending input reach the filter, which drops it. The sleep gives events that the window system has already sent
// time to arrive through another thread.
void DropPendingInput() {
  QGuiApplication::sync();
  QThread::msleep(InputArrivalMilliseconds);
  QCoreApplication::processEvents();
}

} // namespace

UserInput::~UserInput() {
  Release();
}

void UserInput::Hold(HeldPointer pointer) {
  m_isHeld = true;
  m_pointer = pointer;
  qApp->installEventFilter(this);
  if (pointer == HeldPointer::Busy) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void UserInput::Release() {
  if (!m_isHeld) return;
  DropPendingInput();
  qApp->removeEventFilter(this);
  if (m_pointer == HeldPointer::Busy) QGuiApplication::restoreOverrideCursor();
  m_isHeld = false;
  // An event loop, such as a message's, discards posted quit events when it starts, but not calls.
  const auto quit = [] {
    QEvent event(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &event);
  };
  if (std::exchange(m_quitIsDue, false)) QMetaObject::invokeMethod(qApp, quit, Qt::QueuedConnection);
}

bool UserInput::eventFilter(QObject* watched, QEvent* event) {
  if (!IsUserInput(event->type())) return QObject::eventFilter(watched, event);
  if (event->type() == QEvent::Quit) m_quitIsDue = true;
  event->ignore(); // otherwise a dropped Close would count as accepted
  return true;
}

void EventClock::WaitUntil(Moment moment) {
  while (m_input.IsHeld() && moment - Now() >= RoomForEvents) {
    const Moment next = std::min(moment, Now() + Slice);
    QCoreApplication::processEvents();
    m_steady.WaitUntil(next);
  }
  m_steady.WaitUntil(moment);
}

} // namespace mr4500x
