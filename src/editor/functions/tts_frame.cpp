#include "tts_frame.h"

#include "decimal.h"
#include "field_rules.h"
#include "fields.h"
#include "frame_parts.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace mr4500x {
namespace {

// Indexed by TtsColumn; column 0 has the desktop's colour.
constexpr std::array<QRgb, TtsColumnCount> Colours = {0,        GreenText, GreenText, TealText,
                                                      TealText, OliveText, OliveText};

constexpr int FirstDataColumn = 1;
constexpr int ColumnCount = static_cast<int>(TtsColumnCount);
constexpr int RowCount = static_cast<int>(TtsEntryCount);
constexpr int FrequencyCharacters = 4;

// In twips.
constexpr double BaseWidth = 770;
constexpr double BaseHeight = 255;
constexpr double NumberColumnWidth = 0.65 * BaseWidth;
constexpr double DataColumnWidth = 1.1 * BaseWidth;
constexpr double DataRowHeight = 1.05 * BaseHeight;
constexpr double HeadingHeight = 2.3 * BaseHeight;

bool IsFrequency(int column) {
  return column == static_cast<int>(TtsColumn::ToneAFreq) || column == static_cast<int>(TtsColumn::ToneBFreq);
}

} // namespace

// Columns are counted as in TtsColumn, so column 0 is hidden; entry n is row n - 1.
class TtsGrid : public CellGrid {
public:
  explicit TtsGrid(QWidget* parent) : CellGrid(RowCount, ColumnCount, FirstDataColumn, TtsFrame::tr("No."), parent) {
    setObjectName(QStringLiteral("gridTTS"));
    setAccessibleName(TtsFrame::tr("TTS table, entries 1 to 8"));
    // Rows and columns share the room of the frame.
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter | static_cast<Qt::Alignment>(Qt::TextWordWrap));
    for (int column = FirstDataColumn; column < ColumnCount; ++column) {
      const QString heading = QString::fromUtf8(LabelOf(static_cast<TtsColumn>(column)));
      setHorizontalHeaderItem(column, new QTableWidgetItem(heading));
      horizontalHeaderItem(column)->setData(Qt::UserRole, SettingName(static_cast<TtsColumn>(column)));
    }
    FitToFont();
    ShowColours();
  }

  // Keeps the design's proportions, but never truncates a heading.
  void FitToFont() {
    const QFontMetrics metrics = fontMetrics();
    const int widestLine = metrics.horizontalAdvance(QStringLiteral("Tone A Dur.")) + 14;
    const int dataWidth = std::max(Pixels(DataColumnWidth, *this), widestLine);
    const auto numberWidth = static_cast<int>(std::lround(dataWidth * NumberColumnWidth / DataColumnWidth));
    const int rowHeight = std::max(Pixels(DataRowHeight, *this), metrics.height() + 4);
    const int headingHeight = std::max(Pixels(HeadingHeight, *this), 2 * metrics.lineSpacing() + 8);
    verticalHeader()->setFixedWidth(numberWidth);
    horizontalHeader()->setFixedHeight(headingHeight);
    setMinimumSize(numberWidth + (ColumnCount - 1) * dataWidth + 2 * frameWidth(),
                   headingHeight + RowCount * rowHeight + 2 * frameWidth());
  }

  // A table that is not in use is grey.
  void ShowColours() {
    const QPalette& desktop = parentWidget()->palette();
    QPalette own;
    if (!isEnabled()) own.setBrush(QPalette::Base, desktop.brush(QPalette::Button));
    setPalette(own);
    for (int column = FirstDataColumn; column < ColumnCount; ++column) {
      const QColor used = ReadableOn(Colours[static_cast<std::size_t>(column)], desktop.color(QPalette::Base));
      const QBrush text = isEnabled() ? QBrush(used) : desktop.brush(QPalette::Disabled, QPalette::Text);
      for (int row = 0; row < RowCount; ++row)
        item(row, column)->setForeground(text);
    }
  }
};

TtsFrame::TtsFrame(MessageView& messages, const FieldTexts& texts)
    : GridFrame(QStringLiteral("fraTTS"), tr("TTS"), "TTS Frequency Invalid!", messages), m_grid(new TtsGrid(this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(m_grid);

  // Not a child of the grid's viewport, because screen readers find only cells in a table.
  m_frequency =
      new EntryBox(QStringLiteral("txtTTSFreq"), FrequencyCharacters, DigitFilter, tr("TTS frequency in Hz"), this);
  m_frequency->setAlignment(Qt::AlignCenter);
  m_time = new ChoiceBox(QStringLiteral("cmbTTST"), ItemTexts(texts.TtsTimes), tr("TTS time in seconds"), this);
  SetUp(*m_grid, *m_frequency, *m_time);
  connect(m_frequency, &EntryBox::Stepped, this, &TtsFrame::txtTTSFreq_Step);
  connect(m_frequency, &EntryBox::Clicked, m_frequency, &EntryBox::SelectEntry);
  connect(m_time, &ChoiceBox::Selected, this, &TtsFrame::cmbTTST_Click);
}

void TtsFrame::CellOpened(int row, int column) {
  const QRect cell = m_grid->visualRect(m_grid->model()->index(row, column));
  const QRect place = cell.translated(m_grid->viewport()->mapTo(this, QPoint()));
  const QRgb colour = Colours[static_cast<std::size_t>(column)];
  if (IsFrequency(column)) {
    m_frequency->SetWholeText(OpenText());
    ShowEditor(*m_frequency, place, colour);
  } else {
    m_time->ShowText(OpenText());
    ShowEditor(*m_time, place, colour);
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

// Stops at 0, because the box accepts no sign. The commit applies the limits.
void TtsFrame::txtTTSFreq_Step(int by) {
  const std::optional<int> hertz = ParseWhole(m_frequency->text().toStdString());
  if (hertz)
    m_frequency->SetWholeText(QString::number(std::max(*hertz + by, 0)));
  else
    RefuseEntry();
}

// A time is stored as soon as it is selected.
void TtsFrame::cmbTTST_Click() {
  if (!m_time->isHidden()) Store(m_time->currentText());
}

void TtsFrame::LayOut() {
  m_grid->FitToFont();
  m_grid->ShowColours();
}

void TtsFrame::SetTtsMode(bool tts) {
  if (!tts) HideEditors();
  setEnabled(tts);
  m_grid->setEnabled(tts);
  m_grid->ShowColours();
}

void TtsFrame::Fill(const Configuration& values) {
  HideEditors();
  for (std::size_t entry = 1; entry <= TtsEntryCount; ++entry)
    for (int column = FirstDataColumn; column < ColumnCount; ++column)
      m_grid->item(static_cast<int>(entry) - 1, column)
          ->setText(QString::fromUtf8(values.Tts(entry, static_cast<TtsColumn>(column))));
}

void TtsFrame::Collect(Configuration& values) const {
  for (std::size_t entry = 1; entry <= TtsEntryCount; ++entry)
    for (int column = FirstDataColumn; column < ColumnCount; ++column)
      values.Tts(entry, static_cast<TtsColumn>(column)) =
          m_grid->item(static_cast<int>(entry) - 1, column)->text().toStdString();
}

void TtsFrame::CollectUnfinished(Configuration& values) const {
  Collect(values);
  if (const auto text = EditedText())
    values.Tts(static_cast<std::size_t>(OpenRow()) + 1, static_cast<TtsColumn>(OpenColumn())) = text->toStdString();
}

} // namespace mr4500x
