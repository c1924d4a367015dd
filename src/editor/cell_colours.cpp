// Adjusting colours to their background.
#include "cell_colours.h"

namespace mr4500x {

QColor ReadableOn(QRgb text, const QColor& background) {
  const QColor designed(text);
  if (background.lightnessF() >= 0.5) return designed;
  const QColor hsl = designed.toHsl();
  // Blue is the darkest of the hues at one lightness: it needs more of it.
  const bool blue = hsl.hslHueF() > 0.6F && hsl.hslHueF() < 0.75F;
  return QColor::fromHslF(hsl.hslHueF(), hsl.hslSaturationF(), blue ? 0.82F : 0.68F);
}

} // namespace mr4500x
