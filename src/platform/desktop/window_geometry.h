// Where the main window stood at the end, kept in the user's settings store.
#pragma once

class QWidget;

namespace mr4500x {

// With the frame, in twips: 1/1440 inch.
struct WindowGeometry {
  int left, top, width, height;
};

[[nodiscard]] WindowGeometry GeometryOf(const QWidget& window);

void StoreWindowGeometry(const WindowGeometry& geometry);

} // namespace mr4500x
