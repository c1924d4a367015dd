// The TTS table.
#include "tts_grid.h"

#include "cell_colours.h"
#include "frame_parts.h"
#include "twips.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace mr4500x {
namespace {

struct ColumnLook {
  const char* heading;
  QRgb text;
};
constexpr QRgb DefaultText = 0; // the desktop's
// clang-format off
constexpr std::array<ColumnLook, TtsColumnCount> Columns = {{
    {"No.",                DefaultText},
    {"Tone A Freq(Hz)",    GreenText},
    {"Tone A Dur.(s)",     GreenText},
    {"Tone B Freq(Hz)",    TealText},
    {"Tone B Dur.(s)",     TealText},
    {"Gap Time(s)",        OliveText},
    {"Group Call Dur.(s)", OliveText},
}};
// clang-format on

constexpr int FirstDataColumn = 1;
constexpr int LastColumn = static_cast<int>(TtsColumnCount) - 1;
constexpr int RowCount = static_cast<int>(TtsEntryCount);

// Twips.
constexpr double BaseWidth = 770;
constexpr double BaseHeight = 255;
constexpr double NumberColumnWidth = 0.65 * BaseWidth;
constexpr double DataColumnWidth = 1.1 * BaseWidth;
constexpr double DataRowHeight = 1.05 * BaseHeight;
constexpr double HeadingHeight = 2.3 * BaseHeight;

} // namespace

TtsGrid::TtsGrid(QWidget* parent) : QTableWidget(RowCount, static_cast<int>(TtsColumnCount), parent) {
  setObjectName(QStringLiteral("gridTTS"));
  setAccessibleName(tr("TTS table, entries 1 to 8"));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setAutoScroll(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(1);
  QHeaderView* const headings = horizontalHeader();
  headings->setMinimumSectionSize(1);
  headings->setSectionResizeMode(QHeaderView::Fixed);
  headings->setSectionsClickable(false);
  headings->setHighlightSections(false);
  headings->setDefaultAlignment(Qt::AlignCenter | static_cast<Qt::Alignment>(Qt::TextWordWrap));

  for (int column = 0; column <= LastColumn; ++column) {
    setHorizontalHeaderItem(column,
                            new QTableWidgetItem(QString::fromUtf8(Columns[static_cast<std::size_t>(column)].heading)));
    for (int row = 0; row < RowCount; ++row) {
      auto* const cell = new QTableWidgetItem(column == 0 ? QString::number(row + 1) : QString());
      cell->setTextAlignment(Qt::AlignCenter);
      cell->setFlags(column == 0 ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
      setItem(row, column, cell);
    }
  }
  setCurrentCell(0, FirstDataColumn, QItemSelectionModel::NoUpdate);
  FitToFont();
  ShowColours();
}

// The design's proportions, and never a heading that is cut.
void TtsGrid::FitToFont() {
  const QFontMetrics metrics = fontMetrics();
  const int widestLine = metrics.horizontalAdvance(QStringLiteral("Tone A Dur.")) + 14;
  const int dataWidth = std::max(Pixels(DataColumnWidth, *this), widestLine);
  const auto numberWidth = static_cast<int>(std::lround(dataWidth * NumberColumnWidth / DataColumnWidth));
  const int rowHeight = std::max(Pixels(DataRowHeight, *this), metrics.height() + 4);
  const int headingHeight = std::max(Pixels(HeadingHeight, *this), 2 * metrics.lineSpacing() + 8);
  setColumnWidth(0, numberWidth);
  for (int column = FirstDataColumn; column <= LastColumn; ++column) {
    setColumnWidth(column, dataWidth);
  }
  verticalHeader()->setDefaultSectionSize(rowHeight);
  horizontalHeader()->setFixedHeight(headingHeight);
  setFixedSize(numberWidth + LastColumn * dataWidth + 2 * frameWidth(),
               headingHeight + RowCount * rowHeight + 2 * frameWidth());
}

QColor TtsGrid::TextColour(int column) const {
  return ReadableOn(Columns[static_cast<std::size_t>(column)].text, parentWidget()->palette().color(QPalette::Base));
}

void TtsGrid::ShowColours() {
  const QPalette& desktop = parentWidget()->palette();
  QPalette own;
  if (!isEnabled()) own.setBrush(QPalette::Base, desktop.brush(QPalette::Button));
  setPalette(own);
  for (int row = 0; row < RowCount; ++row) {
    item(row, 0)->setBackground(desktop.brush(QPalette::Button));
    item(row, 0)->setForeground(
        desktop.brush(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    for (int column = FirstDataColumn; column <= LastColumn; ++column) {
      item(row, column)
          ->setForeground(isEnabled() ? QBrush(TextColour(column)) : desktop.brush(QPalette::Disabled, QPalette::Text));
    }
  }
}

void TtsGrid::SetUsed(bool used) {
  setEnabled(used);
  ShowColours();
}

void TtsGrid::changeEvent(QEvent* event) {
  QTableWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitToFont();
}

// The current cell stands out while the table has the focus.
void TtsGrid::focusInEvent(QFocusEvent* event) {
  QTableWidget::focusInEvent(event);
  setCurrentCell(currentRow(), currentColumn());
}

void TtsGrid::focusOutEvent(QFocusEvent* event) {
  QTableWidget::focusOutEvent(event);
  clearSelection();
}

// Along the row, then to the next one, and from the last cell to the first.
void TtsGrid::MoveOn() {
  if (currentColumn() < LastColumn) {
    setCurrentCell(currentRow(), currentColumn() + 1);
  } else {
    setCurrentCell((currentRow() + 1) % RowCount, FirstDataColumn);
  }
}

void TtsGrid::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    MoveOn();
    break;
  case Qt::Key_Space:
    emit CellOpened(currentRow(), currentColumn());
    break;
  case Qt::Key_Left:
  case Qt::Key_Right:
  case Qt::Key_Up:
  case Qt::Key_Down:
  case Qt::Key_Home:
  case Qt::Key_End:
  case Qt::Key_PageUp:
  case Qt::Key_PageDown:
    QTableWidget::keyPressEvent(event);
    break;
  default:
    event->ignore();
  }
}

void TtsGrid::mouseReleaseEvent(QMouseEvent* event) {
  QTableWidget::mouseReleaseEvent(event);
  const QModelIndex under = indexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !under.isValid() || under.column() < FirstDataColumn) return;
  emit CellOpened(currentRow(), currentColumn());
}

} // namespace mr4500x
