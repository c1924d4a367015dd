// Telling the moves of the focus apart.
#include "focus_moves.h"

#include <QApplication>
#include <QFocusEvent>
#include <QWidget>

namespace mr4500x {

bool MovesBetweenControls(const QFocusEvent& event) {
  const Qt::FocusReason reason = event.reason();
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

bool HoldsFocus(const QWidget& control) {
  for (const QObject* holder = QApplication::focusWidget(); holder != nullptr; holder = holder->parent()) {
    if (holder == &control) return true;
  }
  return false;
}

} // namespace mr4500x
