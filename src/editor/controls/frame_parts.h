// Building blocks of frames and dialogs: lengths that scale with the font, colours that stay readable, labelled fields,
// OK and Cancel, error messages.
#pragma once

#include "message_view.h"

#include <QColor>
#include <QRect>
#include <QStringList>

#include <span>
#include <string_view>

class QDialog;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPalette;
class QPushButton;
class QWidget;

namespace mr4500x {

// Converts a layout length in twips (1/1440 inch). 15 twips are one pixel in the 8-point font of the design.
[[nodiscard]] int Pixels(double twips, const QWidget& widget);

// Text colours for a light background.
inline constexpr QRgb GreenText = qRgb(0, 128, 0);   // receive side, tone A
inline constexpr QRgb TealText = qRgb(0, 128, 128);  // transmit side, tone B
inline constexpr QRgb NavyText = qRgb(0, 0, 128);    // both sides
inline constexpr QRgb OliveText = qRgb(128, 128, 0); // gap and group call times
inline constexpr QRgb DarkBlueText = qRgb(0, 0, 192);

// The colour, lightened on a dark background with the same hue.
[[nodiscard]] QColor ReadableOn(QRgb text, const QColor& background);

// A grey that can be read on a field. The palette's grey for disabled text is too light for information.
[[nodiscard]] QColor GreyOn(const QPalette& palette);

[[nodiscard]] QColor Between(const QColor& one, const QColor& other, float share); // 0 is `one`

// Sets the text colour of a field or an option, readable on the backgrounds of `like`.
void SetTextColour(QWidget& widget, QRgb text, const QWidget& like);

// Scrolls the enclosing scroll area, if any, to make the rectangle of the widget visible.
void ScrollTo(const QWidget& widget, const QRect& rectangle);

// Enables or disables the field. A disabled one has the background of a button.
void SetUsable(QWidget& field, bool usable);

template<class Items>
[[nodiscard]] QStringList ItemTexts(const Items& items) {
  QStringList texts;
  for (const auto& item : items)
    texts.append(QString::fromUtf8(item));
  return texts;
}

// Adds the label in `column` and the field in `column + 1`. Returns the label.
QLabel* AddField(QGridLayout& layout, int row, int column, const QString& label, QWidget* field);

[[nodiscard]] QGridLayout* NewFieldLayout(QWidget& frame);

// Right-aligned buttons. Cancel is connected to reject, OK to nothing.
struct OkCancel {
  QHBoxLayout* row;
  QPushButton* ok;
  QPushButton* cancel;
};
[[nodiscard]] OkCancel NewOkCancel(QDialog& dialog);

// Shows a message with the exclamation icon. Some texts are misspelt on purpose: "Invalide", "Auot", "initiated".
void ShowEntryError(MessageView& messages, std::string_view text);

} // namespace mr4500x
