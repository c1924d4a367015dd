#include "open_windows.h"

#include <QApplication>
#include <QMainWindow>
#include <QProxyStyle>
#include <QSettings>

#include <cmath>

namespace mr4500x {
namespace {

class ButtonsWithoutIcons : public QProxyStyle {
public:
  using QProxyStyle::QProxyStyle;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override {
    const bool icons = hint == SH_DialogButtonBox_ButtonsHaveIcons;
    return icons ? 0 : QProxyStyle::styleHint(hint, option, widget, returnData);
  }
};

} // namespace

QWidget* OwnerWindow() {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  return nullptr;
}

void ScaleByWholeFactors() {
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
}

void ShowNoIconsOnDialogButtons() {
  QApplication::setStyle(new ButtonsWithoutIcons(QApplication::style()->name()));
}

WindowGeometry GeometryOf(const QWidget& window) {
  constexpr double twipsPerInch = 1440;
  const QRect frame = window.frameGeometry();
  const auto twips = [](int pixels, int dpi) { return static_cast<int>(std::lround(pixels * twipsPerInch / dpi)); };
  const int across = window.logicalDpiX(), down = window.logicalDpiY();
  return {twips(frame.left(), across), twips(frame.top(), down), twips(frame.width(), across),
          twips(frame.height(), down)};
}

void StoreWindowGeometry(const WindowGeometry& geometry) {
  QSettings store(QStringLiteral("MR4500X"), QStringLiteral("MR4500X"));
  const std::pair<const char*, int> values[] = {{"MainLeft", geometry.left},
                                                {"MainTop", geometry.top},
                                                {"MainWidth", geometry.width},
                                                {"MainHeight", geometry.height}};
  for (const auto& [name, value] : values)
    store.setValue(QStringLiteral("Settings/") + QLatin1String(name), QString::number(value));
}

} // namespace mr4500x
