// Which window a dialog of the program belongs to.
#pragma once

class QWidget;

namespace mr4500x {

// The open modal dialog, else the main window while it is shown, else none.
[[nodiscard]] QWidget* OwnerWindow();

} // namespace mr4500x
