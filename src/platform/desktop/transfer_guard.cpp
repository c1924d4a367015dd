#include "transfer_guard.h"

#include <QApplication>
#include <QEvent>
#include <QThread>

#include <algorithm>
#include <array>

namespace mr4500x {
namespace {

constexpr unsigned long InputArrivalMilliseconds = 5;

bool IsUserInput(QEvent::Type type) {
  static constexpr std::array types = {QEvent::MouseButtonPress,
                                       QEvent::MouseButtonRelease,
                                       QEvent::MouseButtonDblClick,
                                       QEvent::MouseMove,
                                       QEvent::NonClientAreaMouseButtonPress,
                                       QEvent::NonClientAreaMouseButtonRelease,
                                       QEvent::NonClientAreaMouseButtonDblClick,
                                       QEvent::NonClientAreaMouseMove,
                                       QEvent::Wheel,
                                       QEvent::KeyPress,
                                       QEvent::KeyRelease,
                                       QEvent::ShortcutOverride,
                                       QEvent::Shortcut,
                                       QEvent::InputMethod,
                                       QEvent::ContextMenu,
                                       QEvent::Close,
                                       QEvent::Quit,
                                       QEvent::DragEnter,
                                       QEvent::DragMove,
                                       QEvent::Drop,
                                       QEvent::TouchBegin,
                                       QEvent::TouchUpdate,
                                       QEvent::TouchEnd,
                                       QEvent::TabletPress,
                                       QEvent::TabletMove,
                                       QEvent::TabletRelease,
                                       QEvent::NativeGesture};
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
  if (m_isHeld) return;
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
}

bool UserInput::eventFilter(QObject* watched, QEvent* event) {
  if (!IsUserInput(event->type())) return QObject::eventFilter(watched, event);
  event->ignore(); // else a dropped Close would count as accepted
  return true;
}

} // namespace mr4500x
