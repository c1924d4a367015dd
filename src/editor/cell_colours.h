// The text colours of the editor's cells, readable on light and on dark desktops.
#pragma once

#include <QColor>
#include <QPalette>

namespace mr4500x {

// As designed for a light background.
inline constexpr QRgb GreenText = qRgb(0, 128, 0);   // receive side, tone A
inline constexpr QRgb TealText = qRgb(0, 128, 128);  // transmit side, tone B
inline constexpr QRgb NavyText = qRgb(0, 0, 128);    // both sides
inline constexpr QRgb OliveText = qRgb(128, 128, 0); // gap and group call times
inline constexpr QRgb DarkBlueText = qRgb(0, 0, 192);

// The colour with its lightness mirrored where the background is dark; its hue stays.
[[nodiscard]] QColor ReadableOn(QRgb text, const QColor& background);

} // namespace mr4500x
