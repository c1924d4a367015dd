#include "frm_two_five.h"

#include "entry_box.h"
#include "entry_messages.h"
#include "field_rules.h"
#include "frame_parts.h"
#include "look.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>

namespace mr4500x {

constexpr int CodeLength = 5;
constexpr int TtsEntries = 8;

FrmTwoFive::FrmTwoFive(const QString& cellText, bool ttsMode, QRgb colour, MessageView& messages, QWidget* parent)
    : QDialog(parent), m_messages(messages), m_cellText(cellText) {
  setObjectName("frmTwoFive");
  setWindowTitle(tr("TTS/5 Tone"));
  LayOut();
  m_optSig[Tts]->setVisible(ttsMode);
  m_cboTwoSig->setVisible(ttsMode);
  m_optSig[FiveTone]->setVisible(!ttsMode);
  m_txtFiveSig->setVisible(!ttsMode);
  for (QWidget* const field :
       std::initializer_list<QWidget*>{m_optSig[Off], m_optSig[Tts], m_optSig[FiveTone], m_cboTwoSig, m_txtFiveSig})
    SetTextColour(*field, colour, *this);
  ShowCell();
  for (QRadioButton* const option : m_optSig)
    connect(option, &QRadioButton::toggled, this, &FrmTwoFive::optSig_Click);
  connect(m_txtFiveSig, &EntryBox::Left, this, &FrmTwoFive::txtFiveSig_LostFocus);
  connect(m_txtFiveSig, &EntryBox::Confirmed, m_cmdOK, &QPushButton::click);
  connect(m_txtFiveSig, &EntryBox::Escaped, this, &FrmTwoFive::reject);
  connect(m_cmdOK, &QPushButton::clicked, this, &FrmTwoFive::cmdOK_Click);
}

// Creates each field right after its option, which makes the tab order.
void FrmTwoFive::LayOut() {
  auto* const layout = new QGridLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  const auto addOption = [&](Option option, const QString& caption, const QString& accessibleName) {
    m_optSig[option] = new QRadioButton(caption, this);
    m_optSig[option]->setObjectName(QStringLiteral("optSig(%1)").arg(option));
    m_optSig[option]->setAccessibleName(accessibleName);
    layout->addWidget(m_optSig[option], static_cast<int>(option), 0);
  };
  addOption(Off, tr("OFF"), tr("No selective call"));
  addOption(Tts, tr("TTS"), tr("Two-tone selective call (TTS)"));
  m_cboTwoSig = new QComboBox(this);
  m_cboTwoSig->setObjectName("cboTwoSig");
  m_cboTwoSig->setAccessibleName(tr("Entry of the TTS table"));
  for (int entry = 1; entry <= TtsEntries; ++entry)
    m_cboTwoSig->addItem(QString::number(entry));
  layout->addWidget(m_cboTwoSig, Tts, 1);
  addOption(FiveTone, tr("5 Tone"), tr("5 tone selective call"));
  m_txtFiveSig = new EntryBox("txtFiveSig", CodeLength, DigitFilter, tr("5 tone code, five digits"), this);
  m_txtFiveSig->setMinimumWidth(m_txtFiveSig->QLineEdit::sizeHint().width());
  layout->addWidget(m_txtFiveSig, FiveTone, 1);
  const OkCancel buttons = NewOkCancel(*this);
  m_cmdOK = buttons.ok;
  m_cmdCancel = buttons.cancel;
  layout->addLayout(buttons.row, 3, 0, 1, 2);
}

void FrmTwoFive::ShowCell() {
  Option chosen = Off;
  if (m_cellText.startsWith(QLatin1String("TTS"))) {
    chosen = Tts;
    // An entry that is not in the list is kept unless the user picks another.
    m_cboTwoSig->setCurrentIndex(m_cboTwoSig->findText(m_cellText.mid(4)));
    m_cboTwoSig->setPlaceholderText(m_cellText.mid(4));
  } else if (m_cellText.startsWith(QLatin1String("5T"))) {
    chosen = FiveTone;
    m_txtFiveSig->setText(m_cellText.right(CodeLength));
  }
  m_optSig[chosen]->setChecked(true);
  m_optSig[chosen]->setFocus();
  optSig_Click();
}

void FrmTwoFive::optSig_Click() {
  m_cboTwoSig->setEnabled(m_optSig[Tts]->isChecked());
  m_txtFiveSig->setEnabled(m_optSig[FiveTone]->isChecked());
}

void FrmTwoFive::txtFiveSig_Validate() {
  const CodeCheck check = CheckFiveToneCode(m_txtFiveSig->text().toStdString());
  if (check.entry == CodeEntry::Accepted || m_validating) return;
  const QScopedValueRollback guard(m_validating, true);
  m_messages.Show(MessageIcon::Exclamation, EntryErrorTitle,
                  check.entry == CodeEntry::NotDigits ? FiveToneInvalidText : FiveToneLengthText, MessageButtons::Ok);
  m_txtFiveSig->setText(QString::fromStdString(check.text));
  m_txtFiveSig->setFocus();
  m_txtFiveSig->selectAll();
}

void FrmTwoFive::txtFiveSig_LostFocus(Qt::FocusReason reason) {
  if (!isVisible() || !m_txtFiveSig->isEnabled()) return;
  // Not when a button is clicked: a message would swallow the click. OK checks the code itself, Cancel discards it.
  const QWidget* const next = QApplication::focusWidget();
  const bool byTab = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
  if (!byTab && (next == m_cmdOK || next == m_cmdCancel)) return;
  txtFiveSig_Validate();
}

void FrmTwoFive::cmdOK_Click() {
  if (m_validating) return;
  if (m_optSig[Off]->isChecked()) {
    m_cellText = QStringLiteral("OFF");
  } else if (m_optSig[Tts]->isChecked()) {
    if (m_cboTwoSig->currentIndex() >= 0) m_cellText = QStringLiteral("TTS ") + m_cboTwoSig->currentText();
  } else {
    txtFiveSig_Validate();
    m_cellText = QStringLiteral("5T ") + m_txtFiveSig->text();
  }
  accept();
}

} // namespace mr4500x
