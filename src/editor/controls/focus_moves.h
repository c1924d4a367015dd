#pragma once

class QFocusEvent;
class QRect;
class QWidget;

namespace mr4500x {

// False if a window, a popup or the menu bar only takes the focus for a while. The entry goes on then: a message box
// about one entry must not end another.
[[nodiscard]] bool MovesBetweenControls(const QFocusEvent& event);

// Whether the control or a child has the focus. The popup of a list counts, although it is a window.
[[nodiscard]] bool HoldsFocus(const QWidget& control);

// Scrolls the enclosing scroll area, if any, to make the rectangle of the widget visible.
void ScrollTo(const QWidget& widget, const QRect& rectangle);

} // namespace mr4500x
