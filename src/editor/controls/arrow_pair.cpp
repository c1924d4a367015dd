#include "arrow_pair.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

namespace mr4500x {

ArrowPair::ArrowPair(const QString& objectName, const QString& accessibleName, QWidget* parent) : QSpinBox(parent) {
  constexpr int rest = 50;
  setObjectName(objectName);
  setAccessibleName(accessibleName);
  setRange(0, 2 * rest);
  setValue(rest);
  lineEdit()->hide();
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  // A click must not take the focus, which would end an unfinished entry.
  setFocusPolicy(Qt::TabFocus);
}

void ArrowPair::stepBy(int steps) {
  if (steps != 0) emit Stepped(steps > 0 ? 1 : -1);
}

// The arrows and their frame only.
QSize ArrowPair::sizeHint() const {
  QStyleOptionSpinBox option;
  initStyleOption(&option);
  option.rect = QRect(QPoint(0, 0), QSpinBox::sizeHint());
  const QRect up = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
  const int frame = style()->pixelMetric(QStyle::PM_SpinBoxFrameWidth, &option, this);
  return {up.width() + frame, option.rect.height()};
}

void ArrowPair::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) return QSpinBox::keyPressEvent(event);
  event->ignore();
}

void ArrowPair::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) return QSpinBox::wheelEvent(event);
  event->ignore();
}

} // namespace mr4500x
