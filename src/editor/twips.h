// Lengths of the layout are given in twips, 1/1440 inch, for the design's 8-point font. They grow with the font.
#pragma once

class QWidget;

namespace mr4500x {

// Twips as pixels for a widget in its present font: 15 twips are one pixel at the design's font size.
[[nodiscard]] int Pixels(double twips, const QWidget& widget);

} // namespace mr4500x
