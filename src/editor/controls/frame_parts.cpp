#include "frame_parts.h"

#include "fill_messages.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>

#include <algorithm>
#include <cmath>

namespace mr4500x {

int Pixels(double twips, const QWidget& widget) {
  constexpr double twipsPerDesignPixel = 15.0; // at 96 dpi
  constexpr double designDigitWidth = 6.0;     // in the design's font, in design pixels
  const double digitWidth = QFontMetricsF(widget.font()).horizontalAdvance(QLatin1Char('0'));
  return static_cast<int>(std::lround(twips / twipsPerDesignPixel * std::max(1.0, digitWidth / designDigitWidth)));
}

QColor ReadableOn(QRgb text, const QColor& background) {
  const QColor designed(text);
  if (background.lightnessF() >= 0.5) return designed;
  const QColor hsl = designed.toHsl();
  // Blue looks darkest at the same lightness and needs more.
  const bool blue = hsl.hslHueF() > 0.6F && hsl.hslHueF() < 0.75F;
  return QColor::fromHslF(hsl.hslHueF(), hsl.hslSaturationF(), blue ? 0.82F : 0.68F);
}

QColor Between(const QColor& one, const QColor& other, float share) {
  return QColor::fromRgbF(one.redF() + (other.redF() - one.redF()) * share,
                          one.greenF() + (other.greenF() - one.greenF()) * share,
                          one.blueF() + (other.blueF() - one.blueF()) * share);
}

QColor GreyOn(const QPalette& palette) {
  return Between(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.6F);
}

void SetTextColour(QWidget& widget, QRgb text, const QWidget& like) {
  const QPalette& present = like.palette();
  QPalette colours; // the rest comes from the parent
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    colours.setColor(group, QPalette::Text, ReadableOn(text, present.color(QPalette::Base)));
    colours.setColor(group, QPalette::ButtonText, ReadableOn(text, present.color(QPalette::Button)));
    colours.setColor(group, QPalette::PlaceholderText, ReadableOn(text, present.color(QPalette::Button)));
  }
  // Only for options, which are drawn on the window. In a list, WindowText would colour the arrows of the popup's
  // scroll bar.
  if (qobject_cast<const QRadioButton*>(&widget) != nullptr)
    for (const auto group : {QPalette::Active, QPalette::Inactive})
      colours.setColor(group, QPalette::WindowText, ReadableOn(text, present.color(QPalette::Window)));
  widget.setPalette(colours);
}

void ScrollTo(const QWidget& widget, const QRect& rectangle) {
  for (QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
    auto* const area = qobject_cast<QScrollArea*>(parent);
    if (area == nullptr || area->widget() == nullptr) continue;
    const QPoint centre = widget.mapTo(area->widget(), rectangle.center());
    area->ensureVisible(centre.x(), centre.y(), rectangle.width() / 2, rectangle.height() / 2);
    return;
  }
}

void SetUsable(QWidget& field, bool usable) {
  const QPalette& present = field.parentWidget()->palette();
  QPalette palette; // the rest comes from the parent
  palette.setColor(QPalette::Disabled, QPalette::Text, GreyOn(present));
  if (!usable) palette.setBrush(QPalette::Base, present.brush(QPalette::Button));
  field.setPalette(palette);
  field.setEnabled(usable);
}

QLabel* AddField(QGridLayout& layout, int row, int column, const QString& label, QWidget* field) {
  auto* const text = new QLabel(label, layout.parentWidget());
  text->setBuddy(field);
  layout.addWidget(text, row, column);
  layout.addWidget(field, row, column + 1);
  return text;
}

QGridLayout* NewFieldLayout(QWidget& frame) {
  auto* const layout = new QGridLayout(&frame);
  layout->setHorizontalSpacing(8);
  layout->setVerticalSpacing(6);
  return layout;
}

OkCancel NewOkCancel(QDialog& dialog) {
  const OkCancel buttons = {new QHBoxLayout, new QPushButton(QDialog::tr("&OK"), &dialog),
                            new QPushButton(QDialog::tr("&Cancel"), &dialog)};
  buttons.ok->setObjectName(QStringLiteral("cmdOK"));
  buttons.ok->setDefault(true);
  buttons.cancel->setObjectName(QStringLiteral("cmdCancel"));
  buttons.row->addStretch();
  buttons.row->addWidget(buttons.ok);
  buttons.row->addWidget(buttons.cancel);
  QObject::connect(buttons.cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  return buttons;
}

void ShowEntryError(MessageView& messages, std::string_view text) {
  messages.Show(MessageIcon::Exclamation, EntryErrorTitle, text, MessageButtons::Ok);
}

} // namespace mr4500x
