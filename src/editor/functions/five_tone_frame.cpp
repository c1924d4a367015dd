// The 5-tone standard.
#include "five_tone_frame.h"

#include "frame_parts.h"

#include <QGridLayout>
#include <QLabel>

namespace mr4500x {

FiveToneFrame::FiveToneFrame(QWidget* parent) : QGroupBox(tr("5 Tone"), parent) {
  setObjectName(QStringLiteral("fraFive"));
  auto* const layout = NewFieldLayout(*this);
  m_list = NewChoiceBox(QStringLiteral("cboFive"), ChoiceList::Standards, tr("5 Tone Standards"), this);
  m_label = AddField(*layout, 0, 0, tr("Standards"), m_list);
  m_label->setObjectName(QStringLiteral("Label7"));
  layout->setColumnStretch(2, 1);
  layout->setRowStretch(1, 1);
  connect(m_list, &ChoiceBox::Selected, this, &FiveToneFrame::Changed);
  SetTtsMode(true);
}

void FiveToneFrame::SetTtsMode(bool tts) {
  setEnabled(!tts);
  m_list->setEnabled(!tts);
  m_label->setEnabled(!tts);
}

void FiveToneFrame::Fill(const Configuration& values) {
  m_standard = values.fiveToneStandard;
  m_list->SetChoice(values[ChoiceList::Standards]);
}

void FiveToneFrame::Gather(Configuration& values) const {
  values.fiveToneStandard = m_standard;
  values[ChoiceList::Standards] = m_list->Chosen();
}

} // namespace mr4500x
