// The look that the editor's controls share: lengths that grow with the font, colours that stay readable.
#pragma once

#include <QColor>

class QWidget;

namespace mr4500x {

// Lengths of the layout are given in twips, 1/1440 inch, for the design's 8-point font: 15 twips are one pixel there.
[[nodiscard]] int Pixels(double twips, const QWidget& widget);

// Text colours as designed for a light background.
inline constexpr QRgb GreenText = qRgb(0, 128, 0);   // receive side, tone A
inline constexpr QRgb TealText = qRgb(0, 128, 128);  // transmit side, tone B
inline constexpr QRgb NavyText = qRgb(0, 0, 128);    // both sides
inline constexpr QRgb OliveText = qRgb(128, 128, 0); // gap and group call times
inline constexpr QRgb DarkBlueText = qRgb(0, 0, 192);

// The colour with its lightness mirrored where the background is dark; its hue stays.
[[nodiscard]] QColor ReadableOn(QRgb text, const QColor& background);

// Texts of this colour in a field or an option, readable on the backgrounds of `like`.
void SetTextColour(QWidget& widget, QRgb text, const QWidget& like);

// Out of use: disabled, on the colour of a button's face.
void SetUsable(QWidget& field, bool usable);

} // namespace mr4500x
