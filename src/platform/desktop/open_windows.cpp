#include "open_windows.h"

#include <QApplication>
#include <QMainWindow>
#include <QPainter>
#include <QProxyStyle>
#include <QSettings>
#include <QStyleOption>

#include <cmath>

namespace mr4500x {
namespace {

class ProgramStyle : public QProxyStyle {
public:
  using QProxyStyle::QProxyStyle;
  // Some dark palettes have the placeholders of a light one.
  void polish(QPalette& palette) override {
    QProxyStyle::polish(palette);
    QColor text = palette.color(QPalette::Text);
    text.setAlphaF(0.6F);
    palette.setColor(QPalette::PlaceholderText, text);
  }
  // The usual edge of an empty box is darker than the window, and so can't be seen on a dark one.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isRound = element == PE_IndicatorRadioButton;
    if (!isRound && element != PE_IndicatorCheckBox && element != PE_IndicatorItemViewItemCheck) return;
    if (option->palette.color(QPalette::Window).lightnessF() >= 0.5F) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, isRound);
    painter->setBrush(Qt::NoBrush);
    QColor colour = option->palette.color(QPalette::Text);
    colour.setAlphaF(option->state.testFlag(State_Enabled) ? 0.6F : 0.3F);
    painter->setPen(colour);
    const QRect edge = option->rect.adjusted(0, 0, -1, -1);
    isRound ? painter->drawEllipse(edge) : painter->drawRect(edge);
    painter->restore();
  }
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

void UseProgramStyle() {
  auto* const style = new ProgramStyle(QApplication::style()->name());
  QApplication::setStyle(style);
  QObject::connect(qApp, &QApplication::focusChanged, style, [](QWidget* /*before*/, QWidget* now) {
    if (now != nullptr) now->window()->setAttribute(Qt::WA_KeyboardFocusChange);
  });
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
