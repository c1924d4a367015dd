// What the frames and dialogs are put together from: labelled fields, OK and Cancel, the message about an entry.
#pragma once

#include "message_view.h"

#include <QString>
#include <QStringList>

#include <span>
#include <string_view>

class QDialog;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QWidget;

namespace mr4500x {

[[nodiscard]] QStringList ItemTexts(std::span<const std::string_view> items);

// Puts a field into the layout's columns `column` (its label) and `column + 1`.
QLabel* AddField(QGridLayout& layout, int row, int column, const QString& label, QWidget* field);

// Columns of labelled fields, apart from each other.
[[nodiscard]] QGridLayout* NewFieldLayout(QWidget& frame);

// The buttons of a dialog, at the right of their row. Cancel is connected.
struct OkCancel {
  QHBoxLayout* row;
  QPushButton* ok;
  QPushButton* cancel;
};
[[nodiscard]] OkCancel NewOkCancel(QDialog& dialog);

void ShowEntryError(MessageView& messages, std::string_view text);

} // namespace mr4500x
