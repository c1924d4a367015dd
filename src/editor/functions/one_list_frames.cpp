#include "one_list_frames.h"

#include <QGridLayout>

namespace mr4500x {

constexpr int TtsPosition = 0;

OneListFrame::OneListFrame(const QString& objectName, const QString& title, ChoiceList list, QWidget* parent)
    : ListFrame(objectName, title, parent), m_list(AddList(0, 0, list)) {
  Fields().setColumnStretch(2, 1);
  Fields().setRowStretch(1, 1);
}

TuneFrame::TuneFrame(QWidget* parent)
    : OneListFrame(QStringLiteral("fraTuneSwitch"), tr("Manual Tune Enable"), ChoiceList::ManualTune, parent) {}

SelectCallFrame::SelectCallFrame(QWidget* parent)
    : OneListFrame(QStringLiteral("fraSelCall"), tr("Select Call"), ChoiceList::SelectCall, parent) {
  connect(&List(), &ChoiceBox::Selected, this, &SelectCallFrame::cboRadio_Change);
}

bool SelectCallFrame::IsTts() const {
  return List().currentIndex() == TtsPosition;
}

void SelectCallFrame::cboRadio_Change(int position) {
  const bool differs = position != m_rememberedMode;
  m_rememberedMode = position;
  if (differs) emit ModeChanged(IsTts());
  emit ListChanged();
  emit Changed();
}

FiveToneFrame::FiveToneFrame(QWidget* parent)
    : OneListFrame(QStringLiteral("fraFive"), tr("5 Tone"), ChoiceList::Standards, parent),
      m_label(Fields().itemAtPosition(0, 0)->widget()) {
  List().setAccessibleName(tr("5 Tone Standards"));
  m_label->setObjectName(QStringLiteral("Label7"));
  connect(&List(), &ChoiceBox::Selected, this, &FiveToneFrame::Changed);
  SetTtsMode(true);
}

void FiveToneFrame::SetTtsMode(bool tts) {
  setEnabled(!tts);
  List().setEnabled(!tts);
  m_label->setEnabled(!tts);
}

void FiveToneFrame::Fill(const Configuration& values) {
  m_standard = values.fiveToneStandard;
  FillLists(values);
}

void FiveToneFrame::Collect(Configuration& values) const {
  values.fiveToneStandard = m_standard;
  CollectLists(values);
}

} // namespace mr4500x
