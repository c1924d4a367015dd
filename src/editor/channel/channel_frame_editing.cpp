// Clicks on cells, and the two in-place editors.
#include "channel_frame.h"

#include "cell_dialogs.h"
#include "cell_items.h"
#include "frame_parts.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QListView>
#include <QScreen>

#include <algorithm>

namespace mr4500x {
namespace {

// Positions of the dialogs, in twips from the corner of the main window.
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
QRgb SideColour(GridColumn column) {
  return IsTransmit(column) ? TealText : GreenText;
}

// Also finds CTC88.5 by the keys 88.5, with either decimal separator.
class ToneView final : public QListView {
public:
  ToneView(char separator, QWidget* parent) : QListView(parent), m_separator(separator) {}
  void keyboardSearch(const QString& typed) override {
    const bool isFirst = !m_last.isValid() || m_last.hasExpired(QApplication::keyboardInputInterval());
    m_last.start();
    if (typed.isEmpty()) m_last.invalidate();
    const bool isSign = typed == QLatin1String(".") || typed == QLatin1String(",");
    const QString keys = isSign ? QString(QLatin1Char(m_separator)) : typed;
    QListView::keyboardSearch(isFirst && !keys.isEmpty() && keys.front().isDigit() ? QStringLiteral("CTC") + keys
                                                                                   : keys);
  }

private:
  char m_separator;
  QElapsedTimer m_last;
};

} // namespace

void ChannelFrame::CellOpened(int channel, int tableColumn) {
  const auto column = static_cast<GridColumn>(tableColumn + 1);
  const auto index = static_cast<std::size_t>(channel);
  if (m_chkCH[index]->isChecked()) return chkCH_Click(channel);
  if (m_chkTx[index]->isChecked() && IsTransmit(column)) return chkTx_Click(channel);
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
  default:
    ToggleText(channel, column);
    break;
  }
  emit Changed();
}

bool ChannelFrame::HasEditor(int channel, int tableColumn) const {
  const auto column = static_cast<GridColumn>(tableColumn + 1);
  const auto index = static_cast<std::size_t>(channel);
  if (m_chkCH[index]->isChecked() || (m_chkTx[index]->isChecked() && IsTransmit(column))) return false;
  return column == GridColumn::RxFreq || column == GridColumn::RxTone || column == GridColumn::TxFreq ||
         column == GridColumn::TxTone;
}

void ChannelFrame::ToggleStep(int channel, GridColumn stepColumn) {
  const char separator = m_texts.decimalSeparator;
  const int step = StepCode(m_gridChannel->Text(channel, stepColumn).toStdString(), m_texts) == 0 ? 1 : 0;
  m_gridChannel->SetText(channel, stepColumn, QString::fromStdString(StepText(step, m_texts)));
  const GridColumn frequencyColumn = stepColumn == GridColumn::RxStep ? GridColumn::RxFreq : GridColumn::TxFreq;
  const auto frequency =
      CommitFrequency(m_gridChannel->Text(channel, frequencyColumn).toStdString(), m_band(), StepUnit(step), separator);
  if (!frequency) return;
  EntryTaken(m_gridChannel->Text(channel, frequencyColumn), QString::fromStdString(*frequency));
  m_gridChannel->SetText(channel, frequencyColumn, QString::fromStdString(*frequency));
}

// Toggles between the two texts of a cell. Any other text becomes the first.
void ChannelFrame::ToggleText(int channel, GridColumn column) {
  const std::string text = m_gridChannel->Text(channel, column).toStdString();
  if (column == GridColumn::TailCut)
    return SetTailCut(channel, text == "OFF" && m_gridChannel->Text(channel, GridColumn::RxTone) != "OFF");
  const std::array<std::string_view, 2> widths = {m_texts.WideBandText, m_texts.NarrowBandText};
  const std::span<const std::string_view> items =
      column == GridColumn::BandWidth ? std::span<const std::string_view>(widths) : CellItems(column, m_isTtsMode());
  m_gridChannel->SetText(channel, column, QString::fromUtf8(items[text == items[0] ? 1 : 0]));
}

void ChannelFrame::AskSelectiveCall(int channel, GridColumn column) {
  FrmTwoFive dialog(m_gridChannel->Text(channel, column), m_isTtsMode(), SideColour(column), Messages(), this);
  const int left = IsTransmit(column) ? TxSelCallLeft : RxSelCallLeft;
  if (Ask(dialog, left)) m_gridChannel->SetText(channel, column, dialog.CellText());
}

void ChannelFrame::AskGroupCall(int channel) {
  FrmGroup dialog(m_gridChannel->Text(channel, GridColumn::GroupCall), m_isTtsMode(), this);
  if (Ask(dialog, GroupCallLeft)) m_gridChannel->SetText(channel, GridColumn::GroupCall, dialog.CellText());
}

bool ChannelFrame::Ask(QDialog& dialog, int leftTwips) {
  dialog.adjustSize();
  QPoint corner = window()->frameGeometry().topLeft() + QPoint(Pixels(leftTwips, *this), Pixels(DialogTop, *this));
  const QRect available = screen()->availableGeometry();
  corner.setX(std::max(available.left(), std::min(corner.x(), available.right() + 1 - dialog.width())));
  corner.setY(std::max(available.top(), std::min(corner.y(), available.bottom() + 1 - dialog.height())));
  dialog.move(corner);
  return dialog.exec() == QDialog::Accepted;
}

void ChannelFrame::OpenFrequencyEditor(int channel, GridColumn column) {
  m_txtChFreq->setAccessibleName(tr("Channel %1, %2 frequency in MHz").arg(channel + 1).arg(SideName(column)));
  m_txtChFreq->PutText(m_gridChannel->Text(channel, column));
  const QPoint corner = m_gridChannel->EditorCorner(channel, column, FrequencyEditorInset);
  ShowEditor(*m_txtChFreq, {corner, m_txtChFreq->size()}, SideColour(column));
}

void ChannelFrame::OpenToneEditor(int channel, GridColumn column) {
  m_cboCTCDCS->setAccessibleName(tr("Channel %1, %2 CTCSS or DCS tone").arg(channel + 1).arg(SideName(column)));
  if (m_toneView == nullptr) m_cboCTCDCS->setView(m_toneView = new ToneView(m_texts.decimalSeparator, m_cboCTCDCS));
  m_toneView->keyboardSearch({}); // discards what was typed in another cell
  m_cboCTCDCS->ShowText(m_gridChannel->Text(channel, column));
  const QPoint corner = m_gridChannel->EditorCorner(channel, column, ToneEditorInset);
  ShowEditor(*m_cboCTCDCS, {corner, m_cboCTCDCS->size()}, SideColour(column));
}

int ChannelFrame::StepOfEditedCell() const {
  const GridColumn stepColumn = IsTransmit(EditedColumn()) ? GridColumn::TxStep : GridColumn::RxStep;
  return StepUnit(StepCode(m_gridChannel->Text(OpenRow(), stepColumn).toStdString(), m_texts).value_or(1));
}

// Replaces a single wrong decimal separator, which only pasted text can have, by the locale's.
std::string ChannelFrame::Typed(const QString& text) const {
  std::string typed = text.toStdString();
  const auto isSign = [](char c) { return c == '.' || c == ','; };
  if (std::ranges::count_if(typed, isSign) == 1) std::ranges::replace_if(typed, isSign, m_texts.decimalSeparator);
  return typed;
}

void ChannelFrame::EntryTaken(const QString& typed, const QString& taken) {
  const char separator = m_texts.decimalSeparator;
  if (typed.isEmpty() || ReadFrequency(Typed(typed), separator) == ReadFrequency(taken.toStdString(), separator))
    return;
  PostStatus(tr("%1 moved to %2 MHz").arg(typed, taken));
}

void ChannelFrame::ReportIgnored(char sign) {
  PostStatus(tr("\"%1\" was ignored: the decimal separator is \"%2\".")
                 .arg(QLatin1Char(sign))
                 .arg(QLatin1Char(m_texts.decimalSeparator)));
}

std::optional<QString> ChannelFrame::CheckedEntry(const QString& typed) const {
  if (typed.isEmpty()) return OpenText();
  const auto frequency = CommitFrequency(Typed(typed), m_band(), StepOfEditedCell(), m_texts.decimalSeparator);
  if (!frequency) return std::nullopt;
  return QString::fromStdString(*frequency);
}

void ChannelFrame::txtChFreq_Step(bool up) {
  const auto frequency =
      StepFrequency(Typed(m_txtChFreq->text()), up, m_band(), StepOfEditedCell(), m_texts.decimalSeparator);
  if (frequency) {
    m_txtChFreq->PutText(QString::fromStdString(*frequency));
  } else {
    RefuseEntry();
    HideEditors();
  }
}

void ChannelFrame::Picked(const QString& tone) {
  if (EditedColumn() == GridColumn::RxTone) SetTailCut(OpenRow(), tone != QLatin1String("OFF"));
}

} // namespace mr4500x
