// The parts of the frames.
#include "frame_parts.h"

#include "function_messages.h"

#include <QGridLayout>
#include <QLabel>
#include <QPalette>

namespace mr4500x {

QStringList ItemTexts(std::span<const std::string_view> items) {
  QStringList texts;
  texts.reserve(static_cast<qsizetype>(items.size()));
  for (const std::string_view item : items) {
    texts.append(QString::fromUtf8(item));
  }
  return texts;
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

void SetUsable(QWidget& field, bool usable) {
  QPalette palette; // what it does not set comes from the parent
  if (!usable) palette.setBrush(QPalette::Base, field.parentWidget()->palette().brush(QPalette::Button));
  field.setPalette(palette);
  field.setEnabled(usable);
}

std::optional<char> DigitCharacter(char key) {
  if (key >= '0' && key <= '9') return key;
  return std::nullopt;
}

void ShowEntryError(MessageView& messages, std::string_view text) {
  messages.Show(MessageIcon::Exclamation, EntryErrorTitle, text, MessageButtons::Ok);
}

} // namespace mr4500x
