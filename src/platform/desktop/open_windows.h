// The program's windows: which one owns a new dialog, how the buttons of dialogs look, and the place of the main
// window, stored at exit.
#pragma once

class QWidget;

namespace mr4500x {

// The parent for a new dialog: the open modal dialog, else the visible main window, else nullptr.
[[nodiscard]] QWidget* OwnerWindow();

// Before the application is made. Scaled by half a pixel, lines come out thick, thin or not at all, so what is between
// whole factors comes from the size of the font: all lengths follow it.
void ScaleByWholeFactors();

// Qt gives icons to the buttons of its own dialogs. The program's have none, so none has, whatever the style.
void ShowNoIconsOnDialogButtons();

// Including the frame, in twips (1/1440 inch).
struct WindowGeometry {
  int left, top, width, height;
};

[[nodiscard]] WindowGeometry GeometryOf(const QWidget& window);
void StoreWindowGeometry(const WindowGeometry& geometry); // in the user's settings

} // namespace mr4500x
