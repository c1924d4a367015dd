// Typing through a filter.
#include "filtered_edit.h"

#include "focus_moves.h"

#include <QKeyEvent>

namespace mr4500x {

FilteredEdit::FilteredEdit(QWidget* parent) : QLineEdit(parent) {
  // Characters composed by an input method would come past the filter.
  setAttribute(Qt::WA_InputMethodEnabled, false);
}

std::optional<QChar> FilteredEdit::Filtered(QChar typed) const {
  if (typed < QLatin1Char('0') || typed > QLatin1Char('9')) return std::nullopt;
  return typed;
}

void FilteredEdit::keyPressEvent(QKeyEvent* event) {
  const QString text = event->text();
  if (text.isEmpty() || !text.front().isPrint()) {
    QLineEdit::keyPressEvent(event);
    return;
  }
  if (const auto character = Filtered(text.front())) insert(QString(*character));
}

void FilteredEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (MovesBetweenControls(*event)) emit FocusLeft(event->reason());
}

} // namespace mr4500x
