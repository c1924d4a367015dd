// The selective-call mode.
#include "select_call_frame.h"

#include "frame_parts.h"

#include <QGridLayout>

namespace mr4500x {
namespace {

constexpr int TtsPosition = 0;

} // namespace

SelectCallFrame::SelectCallFrame(QWidget* parent) : QGroupBox(tr("Select Call"), parent) {
  setObjectName(QStringLiteral("fraSelCall"));
  auto* const layout = NewFieldLayout(*this);
  m_list = NewChoiceBox(QStringLiteral("cboRadio(0)"), ChoiceList::SelectCall, tr("Select Call"), this);
  AddField(*layout, 0, 0, tr("Select Call"), m_list);
  layout->setColumnStretch(2, 1);
  layout->setRowStretch(1, 1);
  connect(m_list, &ChoiceBox::Selected, this, &SelectCallFrame::cboRadio_Change);
}

bool SelectCallFrame::IsTts() const {
  return m_list->currentIndex() == TtsPosition;
}

void SelectCallFrame::cboRadio_Change(int position) {
  const bool differs = position != m_rememberedMode;
  m_rememberedMode = position;
  if (differs) emit ModeChanged(IsTts());
  emit ListChanged();
  emit Changed();
}

void SelectCallFrame::Fill(const Configuration& values) {
  m_list->SetChoice(values[ChoiceList::SelectCall]);
}

void SelectCallFrame::Gather(Configuration& values) const {
  values[ChoiceList::SelectCall] = m_list->Chosen();
}

} // namespace mr4500x
