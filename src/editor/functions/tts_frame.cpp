#include "tts_frame.h"

#include "choice_box.h"
#include "decimal.h"
#include "entry_box.h"
#include "entry_messages.h"
#include "field_rules.h"
#include "tts_grid.h"

#include <QVBoxLayout>

#include <algorithm>

namespace mr4500x {
namespace {

constexpr int FrequencyCharacters = 4;
constexpr int TimeCount = 100; // 0.1 s to 10 s

QStringList TimeTexts(char decimalSeparator) {
  QStringList texts;
  texts.reserve(TimeCount);
  for (int tenths = 1; tenths <= TimeCount; ++tenths)
    texts.append(QString::fromUtf8(TtsTimeText(static_cast<std::uint8_t>(tenths), decimalSeparator)));
  return texts;
}

bool IsFrequency(int column) {
  return column == static_cast<int>(TtsColumn::ToneAFreq) || column == static_cast<int>(TtsColumn::ToneBFreq);
}

} // namespace

TtsFrame::TtsFrame(MessageView& messages, char decimalSeparator, QWidget* parent)
    : GridFrame(tr("TTS"), TtsFrequencyInvalidText, messages, parent), m_grid(new TtsGrid(this)) {
  setObjectName(QStringLiteral("fraTTS"));
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(m_grid);
  layout->addStretch(1);

  m_frequency = new EntryBox(QStringLiteral("txtTTSFreq"), FrequencyCharacters, DigitFilter, tr("TTS frequency in Hz"),
                             m_grid->viewport());
  m_frequency->setAlignment(Qt::AlignCenter);
  m_time = new ChoiceBox(QStringLiteral("cmbTTST"), TimeTexts(decimalSeparator), tr("TTS time in seconds"),
                         m_grid->viewport());
  SetUp(*m_grid, *m_frequency, *m_time);
  connect(m_frequency, &EntryBox::Stepped, this, &TtsFrame::txtTTSFreq_Step);
  connect(m_frequency, &EntryBox::Clicked, m_frequency, &EntryBox::SelectEntry);
  connect(m_time, &ChoiceBox::Selected, this, &TtsFrame::cmbTTST_Click);
}

void TtsFrame::CellOpened(int row, int column) {
  const QRect place = m_grid->visualRect(m_grid->model()->index(row, column));
  if (IsFrequency(column)) {
    m_frequency->SetWholeText(OpenText());
    ShowEditor(*m_frequency, place, TtsGrid::TextColour(column));
  } else {
    m_time->ShowText(OpenText());
    ShowEditor(*m_time, place, TtsGrid::TextColour(column));
  }
  emit Changed();
}

std::optional<QString> TtsFrame::CheckedEntry(const QString& typed) const {
  const auto limited = LimitTtsFrequency(typed.toStdString());
  if (!limited) return std::nullopt;
  return QString::fromUtf8(*limited);
}

void TtsFrame::EntryConfirmed() {
  if (OpenColumn() == static_cast<int>(TtsColumn::ToneAFreq)) m_grid->MoveOn();
}

// Stops at 0, as the box takes no sign; the commit applies the limits.
void TtsFrame::txtTTSFreq_Step(int by) {
  const std::optional<int> hertz = ParseWhole(m_frequency->text().toStdString());
  if (hertz)
    m_frequency->SetWholeText(QString::number(std::max(*hertz + by, 0)));
  else
    RefuseEntry();
}

// A time is stored as soon as it is picked.
void TtsFrame::cmbTTST_Click() {
  if (!m_time->isHidden()) Store(m_time->currentText());
}

void TtsFrame::LayOut() {
  m_grid->FitToFont();
  m_grid->ShowColours();
}

void TtsFrame::SetTtsMode(bool tts) {
  if (!tts) HideEditors();
  if (tts == m_grid->isEnabledTo(this) && tts == isEnabled()) return;
  setEnabled(tts);
  m_grid->SetUsed(tts);
}

void TtsFrame::Fill(const Configuration& values) {
  HideEditors();
  for (std::size_t entry = 1; entry <= TtsEntryCount; ++entry) {
    for (std::size_t column = 1; column < TtsColumnCount; ++column) {
      m_grid->SetText(static_cast<int>(entry - 1), static_cast<int>(column),
                      QString::fromUtf8(values.Tts(entry, static_cast<TtsColumn>(column))));
    }
  }
}

void TtsFrame::Collect(Configuration& values) const {
  for (std::size_t entry = 1; entry <= TtsEntryCount; ++entry) {
    for (std::size_t column = 1; column < TtsColumnCount; ++column) {
      values.Tts(entry, static_cast<TtsColumn>(column)) =
          m_grid->Text(static_cast<int>(entry - 1), static_cast<int>(column)).toStdString();
    }
  }
}

} // namespace mr4500x
