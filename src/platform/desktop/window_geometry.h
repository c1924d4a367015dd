// The position of the main window, stored at exit in the user's settings.
#pragma once

class QWidget;

namespace mr4500x {

// Including the frame, in twips (1/1440 inch).
struct WindowGeometry {
  int left, top, width, height;
};

[[nodiscard]] WindowGeometry GeometryOf(const QWidget& window);

void StoreWindowGeometry(const WindowGeometry& geometry);

} // namespace mr4500x
