#include "focus_moves.h"

#include <QApplication>
#include <QFocusEvent>
#include <QScrollArea>

namespace mr4500x {

bool MovesBetweenControls(const QFocusEvent& event) {
  const Qt::FocusReason reason = event.reason();
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

bool HoldsFocus(const QWidget& control) {
  for (const QObject* holder = QApplication::focusWidget(); holder != nullptr; holder = holder->parent())
    if (holder == &control) return true;
  return false;
}

void ScrollTo(const QWidget& widget, const QRect& rectangle) {
  for (QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
    auto* const area = qobject_cast<QScrollArea*>(parent);
    if (area == nullptr || area->widget() == nullptr) continue;
    const QPoint centre = widget.mapTo(area->widget(), rectangle.center());
    area->ensureVisible(centre.x(), centre.y(), rectangle.width(), rectangle.height());
    return;
  }
}

} // namespace mr4500x
