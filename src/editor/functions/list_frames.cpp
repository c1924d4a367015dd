#include "list_frames.h"

#include "fields.h"

#include <QCheckBox>
#include <QGridLayout>

namespace mr4500x {

ScanFrame::ScanFrame() : FieldFrame(QStringLiteral("fraScan"), tr("Scan Information")) {
  m_signal = new QCheckBox(QString::fromUtf8(LabelOf(Box::ScanSignal)), this);
  m_signal->setObjectName(QStringLiteral("chkSignal"));
  m_signal->setAccessibleName(tr("Scan Signal"));
  NameSetting(*m_signal, Box::ScanSignal);
  Fields().addWidget(m_signal, 0, 0);
  connect(m_signal, &QCheckBox::toggled, this, &ScanFrame::Changed);

  // In tab order.
  constexpr int left = 1;
  constexpr int right = 4;
  AddList(0, left, ChoiceList::ScanMode);
  AddList(0, right, ChoiceList::PriorityCh);
  AddList(1, left, ChoiceList::ToScanDelay);
  AddList(1, right, ChoiceList::RevertCh);
  AddList(2, left, ChoiceList::RestoreTime);
  AddList(2, right, ChoiceList::LookBack);
  StretchFields({left, right});
}

void ScanFrame::Fill(const Configuration& values) {
  m_signal->setChecked(values.scanSignal);
  FieldFrame::Fill(values);
}

void ScanFrame::Collect(Configuration& values) const {
  values.scanSignal = m_signal->isChecked();
  FieldFrame::Collect(values);
}

SelectCallFrame::SelectCallFrame()
    : FieldFrame(QStringLiteral("fraSelCall"), tr("Select Call"), ChoiceList::SelectCall) {
  connect(&List(ChoiceList::SelectCall), &ChoiceBox::Selected, this, [this](int mode) {
    if (std::exchange(m_mode, mode) != mode) emit ModeChanged(IsTts());
  });
}

FiveToneFrame::FiveToneFrame()
    : FieldFrame(QStringLiteral("fraFive"), tr("5 Tone"), ChoiceList::Standards),
      m_label(Fields().itemAtPosition(0, 0)->widget()) {
  List(ChoiceList::Standards).setAccessibleName(tr("5 Tone Standards"));
  m_label->setObjectName(QStringLiteral("Label7"));
  SetTtsMode(true);
}

void FiveToneFrame::SetTtsMode(bool tts) {
  setEnabled(!tts);
  List(ChoiceList::Standards).setEnabled(!tts);
  m_label->setEnabled(!tts);
}

} // namespace mr4500x
