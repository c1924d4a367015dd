// What a click on a cell does, and the two in-place editors.
#include "channel_frame.h"

#include "cell_colours.h"
#include "channel_messages.h"
#include "channel_record.h"
#include "frequency_editor.h"
#include "group_dialog.h"
#include "tone_editor.h"
#include "twips.h"
#include "two_five_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QScopedValueRollback>
#include <QScreen>

#include <algorithm>

namespace mr4500x {
namespace {

// Of the two texts of a toggle, anything that is not `from` becomes `from`.
struct Toggle {
  GridColumn column;
  const char* from;
  const char* to;
};
constexpr std::array Toggles = {
    Toggle{GridColumn::Combination, "AND", "OR"},
    Toggle{GridColumn::HighTxPower, "Permit", "Prohibit"},
    Toggle{GridColumn::PttId, "OFF", "ON"},
};

// Twips from the corner of the main window.
constexpr int DialogTop = 3100;
constexpr int RxSelCallLeft = 4000;
constexpr int TxSelCallLeft = 8000;
constexpr int GroupCallLeft = 9000;

constexpr int FrequencyEditorInset = 25;
constexpr int ToneEditorInset = 15;

bool IsTransmit(GridColumn column) {
  return column >= GridColumn::TxFreq && column <= GridColumn::HighTxPower;
}

QString SideName(GridColumn column) {
  return IsTransmit(column) ? ChannelFrame::tr("transmit") : ChannelFrame::tr("receive");
}

void ColourEditor(QWidget& editor, GridColumn column) {
  const QRgb colour = IsTransmit(column) ? TealText : GreenText;
  QPalette palette = QApplication::palette(&editor);
  palette.setColor(QPalette::Text, ReadableOn(colour, palette.color(QPalette::Base)));
  palette.setColor(QPalette::ButtonText, ReadableOn(colour, palette.color(QPalette::Button)));
  palette.setColor(QPalette::PlaceholderText, ReadableOn(colour, palette.color(QPalette::Button)));
  editor.setPalette(palette);
}

} // namespace

void ChannelFrame::gridChannel_Activate() {
  CommitEditors(); // in a window without the focus, no editor has lost it
  const int channel = m_gridChannel->CurrentChannel();
  const GridColumn column = m_gridChannel->CurrentColumn();
  const auto index = static_cast<std::size_t>(channel);
  if (m_chkCH[index]->isChecked()) {
    chkCH_Click(channel);
    return;
  }
  if (m_chkTx[index]->isChecked() && IsTransmit(column)) {
    chkTx_Click(channel);
    return;
  }
  switch (column) {
  case GridColumn::RxFreq:
  case GridColumn::TxFreq:
    OpenFrequencyEditor(channel, column);
    break;
  case GridColumn::RxStep:
  case GridColumn::TxStep:
    ToggleStep(channel, column);
    break;
  case GridColumn::RxTone:
  case GridColumn::TxTone:
    OpenToneEditor(channel, column);
    break;
  case GridColumn::RxSelCall:
  case GridColumn::TxSelCall:
    AskSelectiveCall(channel, column);
    break;
  case GridColumn::GroupCall:
    AskGroupCall(channel);
    break;
  case GridColumn::TailCut:
    ToggleTailCut(channel);
    break;
  default:
    ToggleText(channel, column);
    break;
  }
  emit Changed();
}

void ChannelFrame::ToggleStep(int channel, GridColumn stepColumn) {
  const char separator = m_texts.decimalSeparator;
  const int step = StepCode(m_gridChannel->Text(channel, stepColumn).toStdString(), separator) == 0 ? 1 : 0;
  m_gridChannel->SetText(channel, stepColumn, QString::fromStdString(StepText(step, separator)));
  const GridColumn frequencyColumn = stepColumn == GridColumn::RxStep ? GridColumn::RxFreq : GridColumn::TxFreq;
  const auto frequency = CommitFrequency(m_gridChannel->Text(channel, frequencyColumn).toStdString(), m_services.band(),
                                         StepUnit(step), separator);
  if (frequency) m_gridChannel->SetText(channel, frequencyColumn, QString::fromStdString(*frequency));
}

void ChannelFrame::ToggleTailCut(int channel) {
  const QString off = QStringLiteral("OFF");
  if (m_gridChannel->Text(channel, GridColumn::RxTone) == off) {
    SetTailCut(channel, false);
  } else {
    const bool wasOff = m_gridChannel->Text(channel, GridColumn::TailCut) == off;
    m_gridChannel->SetText(channel, GridColumn::TailCut, wasOff ? QStringLiteral("ON") : off);
  }
}

void ChannelFrame::ToggleText(int channel, GridColumn column) {
  const QString text = m_gridChannel->Text(channel, column);
  if (column == GridColumn::BandWidth) {
    const bool wide = text == QString::fromStdString(m_texts.WideBandText);
    m_gridChannel->SetText(channel, column,
                           QString::fromStdString(wide ? m_texts.NarrowBandText : m_texts.WideBandText));
    return;
  }
  const auto* const toggle =
      std::find_if(Toggles.begin(), Toggles.end(), [column](const Toggle& t) { return t.column == column; });
  if (toggle == Toggles.end()) return;
  m_gridChannel->SetText(channel, column,
                         QLatin1String(text == QLatin1String(toggle->from) ? toggle->to : toggle->from));
}

void ChannelFrame::AskSelectiveCall(int channel, GridColumn column) {
  const bool transmit = IsTransmit(column);
  TwoFiveDialog dialog(m_gridChannel->Text(channel, column), m_services.isTtsMode(), transmit ? TealText : GreenText,
                       m_services.messages, this);
  if (Ask(dialog, transmit ? TxSelCallLeft : RxSelCallLeft)) m_gridChannel->SetText(channel, column, dialog.CellText());
}

void ChannelFrame::AskGroupCall(int channel) {
  GroupDialog dialog(m_gridChannel->Text(channel, GridColumn::GroupCall), m_services.isTtsMode(), this);
  if (Ask(dialog, GroupCallLeft)) m_gridChannel->SetText(channel, GridColumn::GroupCall, dialog.CellText());
}

bool ChannelFrame::Ask(QDialog& dialog, int leftTwips) {
  dialog.adjustSize();
  QPoint corner = window()->frameGeometry().topLeft() + QPoint(Pixels(leftTwips, *this), Pixels(DialogTop, *this));
  // Not past the edge of the screen.
  const QRect desk = screen()->availableGeometry();
  corner.setX(std::max(desk.left(), std::min(corner.x(), desk.right() + 1 - dialog.width())));
  corner.setY(std::max(desk.top(), std::min(corner.y(), desk.bottom() + 1 - dialog.height())));
  dialog.move(corner);
  return dialog.exec() == QDialog::Accepted;
}

void ChannelFrame::OpenFrequencyEditor(int channel, GridColumn column) {
  m_editedChannel = channel;
  m_editedColumn = column;
  ColourEditor(*m_txtChFreq, column);
  m_txtChFreq->setAccessibleName(tr("Channel %1, %2 frequency in MHz").arg(channel + 1).arg(SideName(column)));
  m_txtChFreq->setText(m_gridChannel->Text(channel, column));
  m_txtChFreq->move(m_gridChannel->EditorCorner(channel, column, FrequencyEditorInset));
  m_txtChFreq->raise();
  m_txtChFreq->show();
  m_txtChFreq->setFocus();
  m_txtChFreq->selectAll();
}

void ChannelFrame::OpenToneEditor(int channel, GridColumn column) {
  m_editedChannel = channel;
  m_editedColumn = column;
  ColourEditor(*m_cboCTCDCS, column);
  m_cboCTCDCS->setAccessibleName(tr("Channel %1, %2 CTCSS or DCS tone").arg(channel + 1).arg(SideName(column)));
  m_cboCTCDCS->move(m_gridChannel->EditorCorner(channel, column, ToneEditorInset));
  m_cboCTCDCS->raise();
  m_cboCTCDCS->Show(m_gridChannel->Text(channel, column));
  m_cboCTCDCS->setFocus();
}

int ChannelFrame::StepBeside(GridColumn frequencyColumn, int channel) const {
  const GridColumn stepColumn = IsTransmit(frequencyColumn) ? GridColumn::TxStep : GridColumn::RxStep;
  return StepUnit(
      StepCode(m_gridChannel->Text(channel, stepColumn).toStdString(), m_texts.decimalSeparator).value_or(1));
}

void ChannelFrame::CommitFrequencyEditor() {
  if (m_txtChFreq->isHidden() || m_closing) return;
  const std::string typed = m_txtChFreq->text().toStdString();
  if (!typed.empty()) {
    const auto frequency = CommitFrequency(typed, m_services.band(), StepBeside(m_editedColumn, m_editedChannel),
                                           m_texts.decimalSeparator);
    if (!frequency) {
      RefuseFrequency();
      return;
    }
    const QString text = QString::fromStdString(*frequency);
    m_txtChFreq->setText(text);
    if (text != m_gridChannel->Text(m_editedChannel, m_editedColumn)) {
      m_gridChannel->SetText(m_editedChannel, m_editedColumn, text);
      emit Changed();
    }
  }
  Close(*m_txtChFreq);
}

void ChannelFrame::RefuseFrequency() {
  {
    const QScopedValueRollback guard(m_closing, true);
    m_services.messages.Show(MessageIcon::Exclamation, EntryErrorTitle, FrequencyInvalidText, MessageButtons::Ok);
  }
  m_txtChFreq->setText(m_gridChannel->Text(m_editedChannel, m_editedColumn));
  Close(*m_txtChFreq);
}

void ChannelFrame::StepFrequencyEditor(bool up) {
  const auto frequency = StepFrequency(m_txtChFreq->text().toStdString(), up, m_services.band(),
                                       StepBeside(m_editedColumn, m_editedChannel), m_texts.decimalSeparator);
  if (!frequency) {
    RefuseFrequency();
    return;
  }
  m_txtChFreq->setText(QString::fromStdString(*frequency));
}

void ChannelFrame::CommitToneEditor() {
  if (m_cboCTCDCS->isHidden() || m_closing) return;
  // Nothing is selected while the cell's tone is none of the list: it stays.
  if (m_cboCTCDCS->currentIndex() >= 0) {
    const QString tone = m_cboCTCDCS->currentText();
    const bool changed = tone != m_gridChannel->Text(m_editedChannel, m_editedColumn);
    m_gridChannel->SetText(m_editedChannel, m_editedColumn, tone);
    if (m_editedColumn == GridColumn::RxTone) SetTailCut(m_editedChannel, tone != QLatin1String("OFF"));
    if (changed) emit Changed();
  }
  Close(*m_cboCTCDCS);
}

void ChannelFrame::Close(QWidget& editor) {
  const QScopedValueRollback guard(m_closing, true);
  // Hiding the control with the focus would send it to any neighbour.
  if (editor.hasFocus()) m_gridChannel->setFocus();
  editor.hide();
}

void ChannelFrame::CommitEditors() {
  CommitFrequencyEditor();
  CommitToneEditor();
}

void ChannelFrame::HideEditors() {
  for (QWidget* const editor : std::initializer_list<QWidget*>{m_txtChFreq, m_cboCTCDCS}) {
    if (!editor->isHidden()) Close(*editor);
  }
}

bool ChannelFrame::HasOpenFrequencyEditor() const {
  return !m_txtChFreq->isHidden();
}

void ChannelFrame::Copy() {
  if (HasOpenFrequencyEditor()) m_services.clipboard.SetText(m_txtChFreq->text().toStdString());
}

void ChannelFrame::Paste() {
  if (HasOpenFrequencyEditor()) m_txtChFreq->setText(QString::fromStdString(m_services.clipboard.Text()));
}

} // namespace mr4500x
