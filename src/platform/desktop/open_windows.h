// The program's windows: the owner of a new dialog, the style, and the geometry of the main window, which is stored at
// exit.
#pragma once

class QWidget;

namespace mr4500x {

// The parent for a new dialog: the open modal dialog, else the visible main window, else nullptr.
[[nodiscard]] QWidget* OwnerWindow();

// Call before the application is created. Lines that are scaled by half a pixel may become thick, thin or invisible. So
// windows are scaled by whole factors, and the font size, which all lengths follow, provides the rest.
void ScaleByWholeFactors();

// The desktop's style with three changes. Qt adds icons to the buttons of its own dialogs: they are removed, as the
// program's dialogs have none. Empty boxes and placeholders can also be seen on a dark window. The control
// that has the focus is always framed, because keys act on it. Qt alone frames it only after Tab.
void UseProgramStyle();

// Including the frame, in twips (1/1440 inch).
struct WindowGeometry {
  int left, top, width, height;
};

[[nodiscard]] WindowGeometry GeometryOf(const QWidget& window);
void StoreWindowGeometry(const WindowGeometry& geometry); // in the user's settings

} // namespace mr4500x
