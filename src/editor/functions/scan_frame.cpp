#include "scan_frame.h"

#include "fields.h"

#include <QCheckBox>
#include <QGridLayout>

namespace mr4500x {

ScanFrame::ScanFrame(QWidget* parent) : ListFrame(QStringLiteral("fraScan"), tr("Scan Information"), parent) {
  m_signal = new QCheckBox(QString::fromUtf8(LabelOf(Box::ScanSignal)), this);
  m_signal->setObjectName(QStringLiteral("chkSignal"));
  m_signal->setAccessibleName(tr("Scan Signal"));
  Fields().addWidget(m_signal, 0, 0);
  connect(m_signal, &QCheckBox::toggled, this, &ScanFrame::Changed);

  // In tab order.
  constexpr int left = 1;
  constexpr int right = 4;
  for (const auto& [row, column, list] : {std::tuple{0, left, ChoiceList::ScanMode},
                                          {0, right, ChoiceList::PriorityCh},
                                          {1, left, ChoiceList::ToScanDelay},
                                          {1, right, ChoiceList::RevertCh},
                                          {2, left, ChoiceList::RestoreTime},
                                          {2, right, ChoiceList::LookBack}})
    connect(AddList(row, column, list), &ChoiceBox::Selected, this, &ScanFrame::Changed);
  Fields().setColumnMinimumWidth(right - 1, 16);
  Fields().setColumnStretch(left + 1, 1);
  Fields().setColumnStretch(right + 1, 1);
  Fields().setRowStretch(3, 1);
}

void ScanFrame::FillSignal(const Configuration& values) {
  m_signal->setChecked(values.scanSignal);
}

void ScanFrame::Collect(Configuration& values) const {
  values.scanSignal = m_signal->isChecked();
  CollectLists(values);
}

} // namespace mr4500x
