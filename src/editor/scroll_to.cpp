// Finding the area.
#include "scroll_to.h"

#include <QRect>
#include <QScrollArea>

namespace mr4500x {

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
