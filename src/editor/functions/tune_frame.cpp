// Manual tuning.
#include "tune_frame.h"

#include "frame_parts.h"

#include <QGridLayout>

namespace mr4500x {

TuneFrame::TuneFrame(QWidget* parent) : QGroupBox(tr("Manual Tune Enable"), parent) {
  setObjectName(QStringLiteral("fraTuneSwitch"));
  auto* const layout = NewFieldLayout(*this);
  m_list = NewChoiceBox(QStringLiteral("cboTuneSwitch"), ChoiceList::ManualTune, tr("Manual Tune"), this);
  AddField(*layout, 0, 0, tr("Manual Tune"), m_list);
  layout->setColumnStretch(2, 1);
  layout->setRowStretch(1, 1);
}

void TuneFrame::Fill(const Configuration& values) {
  m_list->SetChoice(values[ChoiceList::ManualTune]);
}

void TuneFrame::Gather(Configuration& values) const {
  values[ChoiceList::ManualTune] = m_list->Chosen();
}

} // namespace mr4500x
