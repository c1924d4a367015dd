// Helpers for frames and dialogs: labelled fields, OK and Cancel, error messages.
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

void ShowEntryError(MessageView& messages, std::string_view text);

} // namespace mr4500x
