#include "transfer_guard.h"

#include <QApplication>
#include <QEvent>
#include <QThread>

namespace mr4500x {
namespace {

constexpr unsigned long InputArrivalMilliseconds = 5;

bool IsUserInput(QEvent::Type type) {
  switch (type) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseMove:
  case QEvent::NonClientAreaMouseButtonPress:
  case QEvent::NonClientAreaMouseButtonRelease:
  case QEvent::NonClientAreaMouseButtonDblClick:
  case QEvent::NonClientAreaMouseMove:
  case QEvent::Wheel:
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::ShortcutOverride:
  case QEvent::Shortcut:
  case QEvent::InputMethod:
  case QEvent::ContextMenu:
  case QEvent::Close:
  case QEvent::Quit:
  case QEvent::DragEnter:
  case QEvent::DragMove:
  case QEvent::Drop:
  case QEvent::TouchBegin:
  case QEvent::TouchUpdate:
  case QEvent::TouchEnd:
  case QEvent::TabletPress:
  case QEvent::TabletMove:
  case QEvent::TabletRelease:
  case QEvent::NativeGesture:
    return true;
  default:
    return false;
  }
}

// What the user did up to now reaches the filter, and ends there. Input that the window system has sent is on its way
// through another thread, hence the short rest.
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
  event->ignore(); // an unanswered Close would count as agreed to
  return true;
}

} // namespace mr4500x
