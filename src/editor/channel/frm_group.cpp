#include "frm_group.h"

#include "frame_parts.h"

#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>

namespace mr4500x {
namespace {

// The cell's text for each item of the two lists.
const std::array<QStringList, 2>& CellTexts() {
  static const std::array<QStringList, 2> texts = {QStringList{"OFF", "Tone A", "Tone B"},
                                                   QStringList{"OFF", "5T 1", "5T 2", "5T 3", "5T 4"}};
  return texts;
}

} // namespace

FrmGroup::FrmGroup(const QString& cellText, bool ttsMode, QWidget* parent) : QDialog(parent), m_cellText(cellText) {
  setObjectName("frmGroup");
  setWindowTitle(tr("Group Call"));
  LayOut();
  ShowCell();
  const Mode mode = ttsMode ? Tts : FiveTone;
  m_optSig[ttsMode ? FiveTone : Tts]->setEnabled(false);
  for (QRadioButton* const option : m_optSig)
    connect(option, &QRadioButton::toggled, this, &FrmGroup::optSig_Click);
  m_optSig[mode]->setChecked(true);
  optSig_Click();
  // A value that is not in the list is kept unless the user picks another.
  if (!CellTexts()[mode].contains(m_cellText)) {
    m_cboTwoSig[mode]->setCurrentIndex(-1);
    m_cboTwoSig[mode]->setPlaceholderText(m_cellText);
  }
  m_cboTwoSig[mode]->setFocus();
}

void FrmGroup::LayOut() {
  auto* const layout = new QGridLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  const std::array<QStringList, 2> items = {
      QStringList{tr("OFF"), tr("Tone A"), tr("Tone B")},
      QStringList{tr("OFF"), tr("First 1"), tr("First 2"), tr("First 3"), tr("First 4")}};
  const std::array captions = {tr("TTS"), tr("5 Tone")};
  for (std::size_t i = 0; i < items.size(); ++i) {
    const int row = static_cast<int>(i);
    m_optSig[i] = new QRadioButton(captions[i], this);
    m_optSig[i]->setObjectName(QStringLiteral("optSig(%1)").arg(row + 1));
    m_cboTwoSig[i] = new QComboBox(this);
    m_cboTwoSig[i]->setObjectName(QStringLiteral("cboTwoSig(%1)").arg(row));
    m_cboTwoSig[i]->addItems(items[i]);
    layout->addWidget(m_optSig[i], row, 0);
    layout->addWidget(m_cboTwoSig[i], row, 1);
  }
  m_optSig[Tts]->setAccessibleName(tr("Two-tone group call (TTS)"));
  m_optSig[FiveTone]->setAccessibleName(tr("5 tone group call"));
  m_cboTwoSig[Tts]->setAccessibleName(tr("Tone of the group call"));
  m_cboTwoSig[FiveTone]->setAccessibleName(tr("Digits of the group call"));
  const OkCancel buttons = NewOkCancel(*this);
  layout->addLayout(buttons.row, 2, 0, 1, 2);
  connect(buttons.ok, &QPushButton::clicked, this, &FrmGroup::cmdOK_Click);
}

void FrmGroup::ShowCell() {
  for (std::size_t i = 0; i < m_cboTwoSig.size(); ++i)
    m_cboTwoSig[i]->setCurrentIndex(std::max(0, static_cast<int>(CellTexts()[i].indexOf(m_cellText))));
}

void FrmGroup::optSig_Click() {
  for (std::size_t i = 0; i < m_optSig.size(); ++i)
    m_cboTwoSig[i]->setEnabled(m_optSig[i]->isChecked());
}

void FrmGroup::cmdOK_Click() {
  const Mode mode = m_optSig[Tts]->isChecked() ? Tts : FiveTone;
  const int position = m_cboTwoSig[mode]->currentIndex();
  if (position >= 0) m_cellText = CellTexts()[mode].at(position);
  accept();
}

} // namespace mr4500x
