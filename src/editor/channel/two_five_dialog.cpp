// The selective-call dialog.
#include "two_five_dialog.h"

#include "cell_colours.h"
#include "channel_messages.h"
#include "field_rules.h"
#include "filtered_edit.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>

namespace mr4500x {
namespace {

constexpr int CodeLength = 5;
constexpr int TtsEntries = 8;

} // namespace

TwoFiveDialog::TwoFiveDialog(const QString& cellText, bool ttsMode, QRgb colour, MessageView& messages, QWidget* parent)
    : QDialog(parent), m_messages(messages), m_cellText(cellText), m_cboTwoSig(new QComboBox(this)),
      m_txtFiveSig(new FilteredEdit(this)), m_cmdOK(new QPushButton(tr("&OK"), this)),
      m_cmdCancel(new QPushButton(tr("&Cancel"), this)) {
  setObjectName("frmTwoFive");
  setWindowTitle(tr("TTS/5 Tone"));
  for (int entry = 1; entry <= TtsEntries; ++entry) {
    m_cboTwoSig->addItem(QString::number(entry));
  }
  m_txtFiveSig->setMaxLength(CodeLength);
  LayOut();
  m_optSig[Tts]->setVisible(ttsMode);
  m_cboTwoSig->setVisible(ttsMode);
  m_optSig[FiveTone]->setVisible(!ttsMode);
  m_txtFiveSig->setVisible(!ttsMode);
  Colour(colour);
  ShowCell();
  for (QRadioButton* const option : m_optSig) {
    connect(option, &QRadioButton::toggled, this, &TwoFiveDialog::optSig_Click);
  }
  connect(m_txtFiveSig, &FilteredEdit::FocusLeft, this, &TwoFiveDialog::txtFiveSig_LostFocus);
  connect(m_cmdOK, &QPushButton::clicked, this, &TwoFiveDialog::cmdOK_Click);
  connect(m_cmdCancel, &QPushButton::clicked, this, &TwoFiveDialog::reject);
}

void TwoFiveDialog::LayOut() {
  auto* const layout = new QGridLayout(this);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  const std::array captions = {tr("OFF"), tr("TTS"), tr("5 Tone")};
  for (std::size_t i = 0; i < m_optSig.size(); ++i) {
    m_optSig[i] = new QRadioButton(captions[i], this);
    m_optSig[i]->setObjectName(QStringLiteral("optSig(%1)").arg(i));
    layout->addWidget(m_optSig[i], static_cast<int>(i), 0);
  }
  m_optSig[Off]->setAccessibleName(tr("No selective call"));
  m_optSig[Tts]->setAccessibleName(tr("Two-tone selective call (TTS)"));
  m_optSig[FiveTone]->setAccessibleName(tr("5 tone selective call"));
  m_cboTwoSig->setObjectName("cboTwoSig");
  m_cboTwoSig->setAccessibleName(tr("Entry of the TTS table"));
  m_txtFiveSig->setObjectName("txtFiveSig");
  m_txtFiveSig->setAccessibleName(tr("5 tone code, five digits"));
  m_cmdOK->setObjectName("cmdOK");
  m_cmdOK->setDefault(true);
  m_cmdCancel->setObjectName("cmdCancel");
  layout->addWidget(m_cboTwoSig, Tts, 1);
  layout->addWidget(m_txtFiveSig, FiveTone, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(m_cmdOK);
  buttons->addWidget(m_cmdCancel);
  layout->addLayout(buttons, 3, 0, 1, 2);
  // Each field right after its option.
  const std::array<QWidget*, 7> order = {m_optSig[Off], m_optSig[Tts], m_cboTwoSig, m_optSig[FiveTone],
                                         m_txtFiveSig,  m_cmdOK,       m_cmdCancel};
  for (std::size_t i = 1; i < order.size(); ++i) {
    setTabOrder(order[i - 1], order[i]);
  }
}

void TwoFiveDialog::Colour(QRgb colour) {
  QPalette colours = palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    colours.setColor(group, QPalette::WindowText, ReadableOn(colour, colours.color(QPalette::Window)));
    colours.setColor(group, QPalette::ButtonText, ReadableOn(colour, colours.color(QPalette::Button)));
    colours.setColor(group, QPalette::Text, ReadableOn(colour, colours.color(QPalette::Base)));
  }
  for (QWidget* const field :
       std::initializer_list<QWidget*>{m_optSig[Off], m_optSig[Tts], m_optSig[FiveTone], m_cboTwoSig, m_txtFiveSig}) {
    field->setPalette(colours);
  }
}

void TwoFiveDialog::ShowCell() {
  Option chosen = Off;
  if (m_cellText.startsWith(QLatin1String("TTS"))) {
    chosen = Tts;
    // An entry that the list does not have stays unless the user picks another.
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

void TwoFiveDialog::optSig_Click() {
  m_cboTwoSig->setEnabled(m_optSig[Tts]->isChecked());
  m_txtFiveSig->setEnabled(m_optSig[FiveTone]->isChecked());
}

void TwoFiveDialog::txtFiveSig_Validate() {
  const CodeCheck check = CheckFiveToneCode(m_txtFiveSig->text().toStdString());
  if (check.entry == CodeEntry::Accepted || m_validating) return;
  const QScopedValueRollback guard(m_validating, true);
  m_messages.Show(MessageIcon::Exclamation, EntryErrorTitle,
                  check.entry == CodeEntry::NotDigits ? FiveToneInvalidText : FiveToneLengthText, MessageButtons::Ok);
  m_txtFiveSig->setText(QString::fromStdString(check.text));
  m_txtFiveSig->setFocus();
  m_txtFiveSig->selectAll();
}

void TwoFiveDialog::txtFiveSig_LostFocus(Qt::FocusReason reason) {
  if (!isVisible() || !m_txtFiveSig->isEnabled()) return;
  // Pressing a button of the dialog: OK checks the code itself, and Cancel has no use for it. A message now would
  // swallow the click.
  const QWidget* const next = QApplication::focusWidget();
  const bool byTab = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
  if (!byTab && (next == m_cmdOK || next == m_cmdCancel)) return;
  txtFiveSig_Validate();
}

void TwoFiveDialog::cmdOK_Click() {
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
