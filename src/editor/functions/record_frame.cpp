#include "record_frame.h"

#include "configuration.h"
#include "field_rules.h"
#include "frame_parts.h"

#include <QGridLayout>
#include <QLabel>

namespace mr4500x {

RecordFrame::RecordFrame(QWidget* parent) : QGroupBox(tr("Radio Record"), parent) {
  setObjectName(QStringLiteral("fraRecord"));
  auto* const layout = NewFieldLayout(*this);
  m_id = AddRecord(0, QStringLiteral("lblID"), tr("ID Number: "));
  m_version = AddRecord(1, QStringLiteral("lblVer"), tr("Version of Firmware:"));
  layout->setColumnStretch(1, 1);
  layout->setRowStretch(2, 1);
}

QLabel* RecordFrame::AddRecord(int row, const QString& objectName, const QString& label) {
  auto* const text = new QLabel(QString::fromUtf8(NoNumberText), this);
  text->setObjectName(objectName);
  text->setTextFormat(Qt::PlainText); // comes from the radio
  // Screen readers read out a label's text; the description adds what it is.
  text->setAccessibleDescription(label.trimmed());
  text->setMinimumWidth(text->fontMetrics().horizontalAdvance(QString(16, QLatin1Char('0'))));
  AddField(*static_cast<QGridLayout*>(layout()), row, 0, label, text);
  return text;
}

void RecordFrame::Fill(const Configuration& values) {
  m_id->setText(QString::fromUtf8(values.identityNumber));
  m_version->setText(QString::fromUtf8(values.firmwareVersion));
}

void RecordFrame::Collect(Configuration& values) const {
  values.identityNumber = m_id->text().toStdString();
  values.firmwareVersion = m_version->text().toStdString();
}

} // namespace mr4500x
