#include "cell_dialogs.h"

#include "cell_items.h"
#include "entry_controls.h"
#include "field_rules.h"
#include "fill_messages.h"
#include "frame_parts.h"

#include <QApplication>
#include <QGridLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace mr4500x {
namespace {

constexpr int CodeLength = 5;

QStringList GroupCallTexts(bool ttsMode) {
  return ItemTexts(CellItems(GridColumn::GroupCall, ttsMode));
}

} // namespace

CellDialog::CellDialog(const char* objectName, const QString& title, const QString& cellText, QWidget* parent)
    : QDialog(parent), m_cellText(cellText) {
  setObjectName(QLatin1String(objectName));
  setWindowTitle(title);
  (new QGridLayout(this))->setSizeConstraint(QLayout::SetFixedSize);
}

QRadioButton* CellDialog::AddOption(int row, int number, const QString& caption, const QString& accessibleName) {
  auto* const option = new QRadioButton(caption, this);
  option->setObjectName(QStringLiteral("optSig(%1)").arg(number));
  option->setAccessibleName(accessibleName);
  static_cast<QGridLayout*>(layout())->addWidget(option, row, 0);
  return option;
}

QComboBox* CellDialog::AddList(int row, const QString& objectName, const QStringList& items,
                               const QString& accessibleName) {
  auto* const list = new QComboBox(this);
  list->setObjectName(objectName);
  list->setAccessibleName(accessibleName);
  list->addItems(items);
  static_cast<QGridLayout*>(layout())->addWidget(list, row, 1);
  return list;
}

FrmTwoFive::FrmTwoFive(const QString& cellText, bool ttsMode, QRgb colour, MessageView& messages, QWidget* parent)
    : CellDialog("frmTwoFive", tr("TTS/5 Tone"), cellText, parent), m_messages(messages) {
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
  m_txtFiveSig->ShowsMessageWhen(
      [this] { return CheckFiveToneCode(m_txtFiveSig->text().toStdString()).entry != CodeEntry::Accepted; });
  connect(m_txtFiveSig, &EntryBox::Confirmed, m_cmdOK, &QPushButton::click);
  connect(m_txtFiveSig, &EntryBox::Escaped, this, &FrmTwoFive::reject);
  connect(m_cmdOK, &QPushButton::clicked, this, &FrmTwoFive::cmdOK_Click);
}

// Creates each field right after its option, which determines the tab order.
void FrmTwoFive::LayOut() {
  auto* const grid = static_cast<QGridLayout*>(layout());
  m_optSig[Off] = AddOption(Off, Off, tr("OFF"), tr("No selective call"));
  m_optSig[Tts] = AddOption(Tts, Tts, tr("TTS"), tr("Two-tone selective call (TTS)"));
  QStringList entries;
  for (std::size_t entry = 1; entry <= TtsEntryCount; ++entry)
    entries.append(QString::number(entry));
  m_cboTwoSig = AddList(Tts, "cboTwoSig", entries, tr("Entry of the TTS table"));
  m_optSig[FiveTone] = AddOption(FiveTone, FiveTone, tr("5 Tone"), tr("5 tone selective call"));
  m_txtFiveSig = new EntryBox("txtFiveSig", CodeLength, DigitFilter, tr("5 tone code, five digits"), this);
  m_txtFiveSig->setMinimumWidth(m_txtFiveSig->QLineEdit::sizeHint().width());
  grid->addWidget(m_txtFiveSig, FiveTone, 1);
  const OkCancel buttons = NewOkCancel(*this);
  m_cmdOK = buttons.ok;
  m_cmdCancel = buttons.cancel;
  grid->addLayout(buttons.row, 3, 0, 1, 2);
}

void FrmTwoFive::ShowCell() {
  Option chosen = Off;
  if (m_cellText.startsWith(QLatin1String("TTS"))) {
    chosen = Tts;
    // An entry that is not in the list is kept unless the user selects another.
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
  ShowEntryError(m_messages,
                 check.entry == CodeEntry::NotDigits ? "Invalide 5 Tone!" : "The number of 5 Tone must be five!");
  m_txtFiveSig->setText(QString::fromStdString(check.text));
  m_txtFiveSig->setFocus();
  m_txtFiveSig->selectAll();
}

void FrmTwoFive::txtFiveSig_LostFocus(Qt::FocusReason reason) {
  if (!isVisible() || !m_txtFiveSig->isEnabled()) return;
  // Skipped when a button is clicked: OK checks the code itself, Cancel and "OFF" discard it.
  const QWidget* const next = QApplication::focusWidget();
  if (reason != Qt::TabFocusReason && (next == m_cmdOK || next == m_cmdCancel || next == m_optSig[Off])) return;
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

FrmGroup::FrmGroup(const QString& cellText, bool ttsMode, QWidget* parent)
    : CellDialog("frmGroup", tr("Group Call"), cellText, parent) {
  const std::size_t mode = ttsMode ? 0 : 1;
  const std::array captions = {tr("TTS"), tr("5 Tone")};
  const std::array optionNames = {tr("Two-tone group call (TTS)"), tr("5 tone group call")};
  const std::array listNames = {tr("Tone of the group call"), tr("Digits of the group call")};
  for (std::size_t i = 0; i < m_cboTwoSig.size(); ++i) {
    const int row = static_cast<int>(i);
    QRadioButton* const option = AddOption(row, row + 1, captions[i], optionNames[i]);
    option->setChecked(i == mode);
    option->setEnabled(i == mode);
    const QStringList texts = GroupCallTexts(i == 0);
    const QStringList shown = QStringList(texts).replaceInStrings("5T", "First");
    m_cboTwoSig[i] = AddList(row, QStringLiteral("cboTwoSig(%1)").arg(row), shown, listNames[i]);
    m_cboTwoSig[i]->setCurrentIndex(std::max(0, static_cast<int>(texts.indexOf(cellText))));
    m_cboTwoSig[i]->setEnabled(i == mode);
  }
  // A value that is not in the list is kept unless the user selects another.
  if (!GroupCallTexts(ttsMode).contains(cellText)) {
    m_cboTwoSig[mode]->setCurrentIndex(-1);
    m_cboTwoSig[mode]->setPlaceholderText(cellText);
  }
  const OkCancel buttons = NewOkCancel(*this);
  static_cast<QGridLayout*>(layout())->addLayout(buttons.row, 2, 0, 1, 2);
  connect(buttons.ok, &QPushButton::clicked, this, [this, mode] { cmdOK_Click(mode); });
  m_cboTwoSig[mode]->setFocus();
}

void FrmGroup::cmdOK_Click(std::size_t mode) {
  const int position = m_cboTwoSig[mode]->currentIndex();
  if (position >= 0) m_cellText = GroupCallTexts(mode == 0).at(position);
  accept();
}

} // namespace mr4500x
