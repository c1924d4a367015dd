// The scan settings.
#include "scan_frame.h"

#include "frame_parts.h"

#include <QCheckBox>
#include <QGridLayout>

namespace mr4500x {
namespace {

struct ScanField {
  ChoiceList list;
  int control; // of cboScan
  const char* label;
  int row, column;
};

// In the order in which they are filled.
// clang-format off
constexpr std::array<ScanField, 6> Fields = {{
    {ChoiceList::ScanMode,    0, "Scan Mode",     0, 1},
    {ChoiceList::ToScanDelay, 1, "TO Scan Delay", 1, 1},
    {ChoiceList::PriorityCh,  3, "Priority CH",   0, 4},
    {ChoiceList::LookBack,    4, "Look Back",     2, 4},
    {ChoiceList::RestoreTime, 5, "Restore Time",  2, 1},
    {ChoiceList::RevertCh,    6, "Revert CH",     1, 4},
}};
// clang-format on

} // namespace

ScanFrame::ScanFrame(QWidget* parent) : QGroupBox(tr("Scan Information"), parent) {
  setObjectName(QStringLiteral("fraScan"));
  auto* const layout = NewFieldLayout(*this);
  m_signal = new QCheckBox(tr("Signal"), this);
  m_signal->setObjectName(QStringLiteral("chkSignal"));
  m_signal->setAccessibleName(tr("Scan Signal"));
  layout->addWidget(m_signal, 0, 0);
  connect(m_signal, &QCheckBox::toggled, this, &ScanFrame::Changed);

  for (std::size_t i = 0; i < Fields.size(); ++i) {
    const ScanField& field = Fields[i];
    const QString label = QString::fromUtf8(field.label);
    m_lists[i] = NewChoiceBox(QStringLiteral("cboScan(%1)").arg(field.control), field.list, label, this);
    AddField(*layout, field.row, field.column, label, m_lists[i]);
    connect(m_lists[i], &ChoiceBox::Selected, this, &ScanFrame::Changed);
  }
  // Row by row, as they are read.
  QWidget* before = m_signal;
  for (const std::size_t next : {0U, 2U, 1U, 5U, 4U, 3U}) {
    setTabOrder(before, m_lists[next]);
    before = m_lists[next];
  }
  layout->setColumnMinimumWidth(3, 16);
  layout->setColumnStretch(2, 1);
  layout->setColumnStretch(5, 1);
  layout->setRowStretch(3, 1);
}

void ScanFrame::FillSignal(const Configuration& values) {
  m_signal->setChecked(values.scanSignal);
}

void ScanFrame::FillLists(const Configuration& values) {
  for (std::size_t i = 0; i < Fields.size(); ++i) {
    m_lists[i]->SetChoice(values[Fields[i].list]);
  }
}

void ScanFrame::Gather(Configuration& values) const {
  values.scanSignal = m_signal->isChecked();
  for (std::size_t i = 0; i < Fields.size(); ++i) {
    values[Fields[i].list] = m_lists[i]->Chosen();
  }
}

} // namespace mr4500x
