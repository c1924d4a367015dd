#include "window_geometry.h"

#include <QSettings>
#include <QString>
#include <QWidget>

#include <cmath>

namespace mr4500x {

WindowGeometry GeometryOf(const QWidget& window) {
  constexpr double twipsPerInch = 1440;
  const QRect frame = window.frameGeometry();
  const auto across = [&](int pixels) {
    return static_cast<int>(std::lround(pixels * twipsPerInch / window.logicalDpiX()));
  };
  const auto down = [&](int pixels) {
    return static_cast<int>(std::lround(pixels * twipsPerInch / window.logicalDpiY()));
  };
  return {across(frame.left()), down(frame.top()), across(frame.width()), down(frame.height())};
}

void StoreWindowGeometry(const WindowGeometry& geometry) {
  QSettings store(QStringLiteral("MR4500X"), QStringLiteral("MR4500X"));
  store.beginGroup(QStringLiteral("Settings"));
  store.setValue(QStringLiteral("MainLeft"), QString::number(geometry.left));
  store.setValue(QStringLiteral("MainTop"), QString::number(geometry.top));
  store.setValue(QStringLiteral("MainWidth"), QString::number(geometry.width));
  store.setValue(QStringLiteral("MainHeight"), QString::number(geometry.height));
}

} // namespace mr4500x
