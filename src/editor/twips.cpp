// Scaling the layout to the font.
#include "twips.h"

#include <QFontMetricsF>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace mr4500x {

int Pixels(double twips, const QWidget& widget) {
  constexpr double twipsPerDesignPixel = 15.0; // at 96 dots an inch
  constexpr double designDigitWidth = 6.0;     // of the digits of the design's font, in its pixels
  const double digitWidth = QFontMetricsF(widget.font()).horizontalAdvance(QLatin1Char('0'));
  return static_cast<int>(std::lround(twips / twipsPerDesignPixel * std::max(1.0, digitWidth / designDigitWidth)));
}

} // namespace mr4500x
