// When a control has really been left: what counts as the end of an entry.
#pragma once

class QFocusEvent;
class QWidget;

namespace mr4500x {

// False where only a window, a popup or the menu bar takes the focus for a while: the entry is not over then, and a
// message box shown for one entry must not end another.
[[nodiscard]] bool MovesBetweenControls(const QFocusEvent& event);

// Whether the focus is on the control or on a part of it; the popup of a list is a window of its own, but the list's.
[[nodiscard]] bool HoldsFocus(const QWidget& control);

} // namespace mr4500x
