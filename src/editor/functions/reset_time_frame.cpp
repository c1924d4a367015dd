#include "reset_time_frame.h"

#include "arrow_pair.h"
#include "entry_box.h"
#include "entry_messages.h"
#include "field_rules.h"
#include "frame_parts.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>

namespace mr4500x {

ResetTimeFrame::ResetTimeFrame(MessageView& messages, QWidget* parent)
    : QGroupBox(tr("Auto Reset Time"), parent), m_messages(messages) {
  setObjectName(QStringLiteral("fraResetTime"));
  m_seconds = new EntryBox(QStringLiteral("txtResetTime"), 3, DigitFilter, tr("Auto Reset Time in seconds"), this);
  m_seconds->IgnoreEditingKeys();
  m_seconds->setText(QStringLiteral("5"));
  m_spinner = new ArrowPair(QStringLiteral("vsbResetTime"), tr("Auto Reset Time up or down"), this);
  m_off = new QCheckBox(tr("OFF"), this);
  m_off->setObjectName(QStringLiteral("chkResetTimeOFF"));
  m_off->setAccessibleName(tr("Auto Reset Time OFF"));
  auto* const label = new QLabel(tr("Auto Reset Time(s)"), this);
  label->setBuddy(m_seconds);

  auto* const layout = new QHBoxLayout(this);
  layout->setSpacing(8);
  layout->addWidget(label);
  auto* const time = new QHBoxLayout;
  time->setSpacing(0); // joins the arrows to the box
  time->addWidget(m_seconds);
  time->addWidget(m_spinner);
  layout->addLayout(time);
  layout->addWidget(m_off);
  layout->addStretch(1);

  connect(m_seconds, &EntryBox::Stepped, this, &ResetTimeFrame::txtResetTime_Step);
  connect(m_seconds, &EntryBox::Confirmed, this, &ResetTimeFrame::txtResetTime_Validate);
  connect(m_seconds, &EntryBox::Left, this, &ResetTimeFrame::txtResetTime_Validate);
  connect(m_seconds, &QLineEdit::textChanged, this, &ResetTimeFrame::Changed);
  connect(m_spinner, &ArrowPair::Stepped, this, &ResetTimeFrame::vsbResetTime_Change);
  connect(m_off, &QCheckBox::toggled, this, &ResetTimeFrame::chkResetTimeOFF_Click);
}

void ResetTimeFrame::Take(const ResetTimeCheck& check) {
  m_seconds->setText(QString::fromUtf8(check.text));
  if (check.off) m_off->setChecked(true);
}

void ResetTimeFrame::txtResetTime_Step(int by) {
  const auto stepped = StepResetTime(m_seconds->text().toStdString(), by);
  if (!stepped) ShowEntryError(m_messages, ResetTimeInvalidAtKeyText);
  Take(stepped.value_or(ResetTimeCheck{"1", false}));
}

void ResetTimeFrame::txtResetTime_Validate() {
  Take(LimitResetTime(m_seconds->text().toStdString()));
}

void ResetTimeFrame::vsbResetTime_Change(int by) {
  const auto spun = SpinResetTime(m_seconds->text().toStdString(), by);
  if (!spun) ShowEntryError(m_messages, ResetTimeInvalidAtSpinnerText);
  m_seconds->setText(QString::fromUtf8(spun.value_or("1")));
}

void ResetTimeFrame::chkResetTimeOFF_Click(bool off) {
  m_seconds->setEnabled(!off);
  m_spinner->setEnabled(!off);
  emit Changed();
}

void ResetTimeFrame::Fill(const Configuration& values) {
  m_off->setChecked(values.autoResetOff);
  // With OFF, the box keeps its text.
  if (!values.autoResetOff) m_seconds->setText(QString::fromUtf8(values.autoResetTime));
}

void ResetTimeFrame::Collect(Configuration& values) const {
  values.autoResetOff = m_off->isChecked();
  values.autoResetTime = m_seconds->text().toStdString();
}

} // namespace mr4500x
