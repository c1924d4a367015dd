// The TTS table's frame and its editors.
#include "tts_frame.h"

#include "choice_box.h"
#include "decimal.h"
#include "entry_box.h"
#include "field_rules.h"
#include "frame_parts.h"
#include "function_messages.h"
#include "tts_grid.h"

#include <QEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace mr4500x {
namespace {

constexpr int FrequencyCharacters = 4;
constexpr int TimeCount = 100; // 0.1 s to 10 s

QStringList TimeTexts(char decimalSeparator) {
  QStringList texts;
  texts.reserve(TimeCount);
  for (int tenths = 1; tenths <= TimeCount; ++tenths) {
    texts.append(QString::fromUtf8(TtsTimeText(static_cast<std::uint8_t>(tenths), decimalSeparator)));
  }
  return texts;
}

bool IsFrequency(int column) {
  return column == static_cast<int>(TtsColumn::ToneAFreq) || column == static_cast<int>(TtsColumn::ToneBFreq);
}

void ColourText(QWidget& editor, const QColor& text) {
  QPalette colours;
  colours.setColor(QPalette::Text, text);
  colours.setColor(QPalette::ButtonText, text);
  editor.setPalette(colours);
}

} // namespace

TtsFrame::TtsFrame(MessageView& messages, Clipboard& clipboard, char decimalSeparator, QWidget* parent)
    : QGroupBox(tr("TTS"), parent), m_messages(messages), m_clipboard(clipboard) {
  setObjectName(QStringLiteral("fraTTS"));
  m_grid = new TtsGrid(this);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(m_grid);
  layout->addStretch(1);

  m_frequency = new EntryBox(QStringLiteral("txtTTSFreq"), FrequencyCharacters, DigitCharacter,
                             EntryBox::OtherKeys::Edit, tr("TTS frequency in Hz"), m_grid->viewport());
  m_frequency->setAlignment(Qt::AlignCenter);
  m_frequency->LeaveClipboardToMenu();
  m_frequency->hide();
  m_time = new ChoiceBox(QStringLiteral("cmbTTST"), TimeTexts(decimalSeparator), tr("TTS time in seconds"),
                         m_grid->viewport());
  m_time->hide();

  connect(m_grid, &TtsGrid::CellOpened, this, &TtsFrame::gridTTS_Open);
  connect(m_frequency, &EntryBox::Confirmed, this, &TtsFrame::txtTTSFreq_Enter);
  connect(m_frequency, &EntryBox::Escaped, this, &TtsFrame::HideEditors);
  connect(m_frequency, &EntryBox::Stepped, this, &TtsFrame::txtTTSFreq_Step);
  connect(m_frequency, &EntryBox::Clicked, this, [this] { m_frequency->setSelection(0, FrequencyCharacters); });
  connect(m_frequency, &EntryBox::Left, this, &TtsFrame::CommitEditors);
  connect(m_time, &ChoiceBox::Selected, this, &TtsFrame::cmbTTST_Click);
  connect(m_time, &ChoiceBox::Left, this, &TtsFrame::HideEditors);
  connect(m_time, &ChoiceBox::Finished, this, &TtsFrame::HideEditors);
}

void TtsFrame::gridTTS_Open(int row, int column) {
  CommitEditors();
  m_row = row;
  m_column = column;
  const QString text = m_grid->Text(row, column);
  if (IsFrequency(column)) {
    m_frequency->SetWholeText(text);
    m_open = Editor::Frequency;
    Place(*m_frequency);
    m_frequency->setSelection(0, FrequencyCharacters);
  } else {
    m_time->ShowPosition(m_time->findText(text)); // no selection for a time that the list lacks
    m_open = Editor::Time;
    Place(*m_time);
  }
  emit Changed();
}

// Over the open cell, in its colour and with the focus.
void TtsFrame::Place(QWidget& editor) {
  ColourText(editor, m_grid->TextColour(m_column));
  editor.setGeometry(m_grid->visualRect(m_grid->model()->index(m_row, m_column)));
  editor.show();
  editor.setFocus();
}

// Closed first, hidden then: what leaves the focus on hiding has nothing more to commit.
void TtsFrame::Close() {
  m_open = Editor::None;
  for (QWidget* const editor : {static_cast<QWidget*>(m_frequency), static_cast<QWidget*>(m_time)}) {
    if (editor->hasFocus()) m_grid->setFocus();
    editor->hide();
  }
}

void TtsFrame::CommitEditors() {
  if (m_open == Editor::Frequency) StoreFrequency();
  Close();
}

void TtsFrame::HideEditors() {
  Close();
}

void TtsFrame::StoreFrequency() {
  const auto limited = LimitTtsFrequency(m_frequency->text().toStdString());
  if (!limited) {
    ReportFrequency();
    return;
  }
  const QString text = QString::fromUtf8(*limited);
  if (text == m_grid->Text(m_row, m_column)) return;
  m_grid->SetText(m_row, m_column, text);
  emit Changed();
}

void TtsFrame::ReportFrequency() {
  ShowEntryError(m_messages, TtsFrequencyInvalidText);
  m_frequency->SetWholeText(m_grid->Text(m_row, m_column));
}

void TtsFrame::txtTTSFreq_Enter() {
  const bool toneA = m_column == static_cast<int>(TtsColumn::ToneAFreq);
  const int row = m_row;
  m_grid->setFocus(); // which commits
  CommitEditors();    // where the window is inactive and the focus does not move
  if (toneA) m_grid->setCurrentCell(row, static_cast<int>(TtsColumn::ToneADur));
}

// The limits are the commit's business; a text without a sign stops at 0.
void TtsFrame::txtTTSFreq_Step(int by) {
  const std::optional<int> hertz = ParseWhole(m_frequency->text().toStdString());
  if (!hertz) {
    ReportFrequency();
    return;
  }
  m_frequency->SetWholeText(QString::number(std::max(*hertz + by, 0)));
}

void TtsFrame::cmbTTST_Click() {
  if (m_open != Editor::Time) return;
  m_grid->SetText(m_row, m_column, m_time->currentText());
  emit Changed();
}

void TtsFrame::SetTtsMode(bool tts) {
  if (!tts) HideEditors();
  if (tts == m_grid->isEnabledTo(this) && tts == isEnabled()) return;
  setEnabled(tts);
  m_grid->SetUsed(tts);
}

void TtsFrame::Copy() {
  if (HasOpenFrequencyEditor()) m_clipboard.SetText(m_frequency->text().toStdString());
}

void TtsFrame::Paste() {
  if (HasOpenFrequencyEditor()) m_frequency->PutText(QString::fromUtf8(m_clipboard.Text()));
}

void TtsFrame::changeEvent(QEvent* event) {
  QGroupBox::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && m_grid != nullptr) m_grid->ShowColours();
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

void TtsFrame::Gather(Configuration& values) const {
  for (std::size_t entry = 1; entry <= TtsEntryCount; ++entry) {
    for (std::size_t column = 1; column < TtsColumnCount; ++column) {
      values.Tts(entry, static_cast<TtsColumn>(column)) =
          m_grid->Text(static_cast<int>(entry - 1), static_cast<int>(column)).toStdString();
    }
  }
}

} // namespace mr4500x
