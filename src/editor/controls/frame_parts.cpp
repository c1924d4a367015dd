#include "frame_parts.h"

#include "fill_messages.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace mr4500x {

QStringList ItemTexts(std::span<const std::string_view> items) {
  QStringList texts;
  texts.reserve(static_cast<qsizetype>(items.size()));
  for (const std::string_view item : items)
    texts.append(QString::fromUtf8(item));
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
