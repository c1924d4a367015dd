// When a control has really been left, and keeping what the user works on in sight.
#pragma once

class QFocusEvent;
class QRect;
class QWidget;

namespace mr4500x {

// False where only a window, a popup or the menu bar takes the focus for a while: the entry is not over then, and a
// message box shown for one entry must not end another.
[[nodiscard]] bool MovesBetweenControls(const QFocusEvent& event);

// Whether the focus is on the control or on a part of it; the popup of a list is a window of its own, but the list's.
[[nodiscard]] bool HoldsFocus(const QWidget& control);

// Scrolls the area in which the widget lies, if there is one, so that the rectangle of the widget is seen.
void ScrollTo(const QWidget& widget, const QRect& rectangle);

} // namespace mr4500x
