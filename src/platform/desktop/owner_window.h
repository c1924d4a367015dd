#pragma once

class QWidget;

namespace mr4500x {

// The parent for a new dialog: the open modal dialog, else the visible main window, else nullptr.
[[nodiscard]] QWidget* OwnerWindow();

} // namespace mr4500x
