// Turns the mouse wheel over a widget.
#pragma once

#include <QApplication>
#include <QWheelEvent>
#include <QWidget>

namespace mr4500x {

inline void TurnWheel(QWidget& over, int notches) {
  const QPointF middle = QRectF(over.rect()).center();
  QWheelEvent event(middle, over.mapToGlobal(middle), {}, {0, 120 * notches}, Qt::NoButton, {}, Qt::NoScrollPhase,
                    /*inverted*/ false);
  QApplication::sendEvent(&over, &event);
}

} // namespace mr4500x
