// What the frames are put together from: labelled fields and the look of a field that is out of use.
#pragma once

#include "message_view.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <span>
#include <string_view>

class QGridLayout;
class QLabel;
class QWidget;

namespace mr4500x {

[[nodiscard]] QStringList ItemTexts(std::span<const std::string_view> items);

// Puts a field into the layout's columns `column` (its label) and `column + 1`.
QLabel* AddField(QGridLayout& layout, int row, int column, const QString& label, QWidget* field);

// Two columns of labelled fields, apart from each other and tight at the top of their frame.
[[nodiscard]] QGridLayout* NewFieldLayout(QWidget& frame);

// Out of use: disabled, on the colour of a button's face.
void SetUsable(QWidget& field, bool usable);

// Whether a digit box accepts the character of a key.
[[nodiscard]] std::optional<char> DigitCharacter(char key);

void ShowEntryError(MessageView& messages, std::string_view text);

} // namespace mr4500x
