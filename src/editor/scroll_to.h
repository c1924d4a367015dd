// Keeping what the user works on in sight.
#pragma once

class QRect;
class QWidget;

namespace mr4500x {

// Scrolls the area in which the widget lies, if there is one, so that the rectangle of the widget is seen.
void ScrollTo(const QWidget& widget, const QRect& rectangle);

} // namespace mr4500x
