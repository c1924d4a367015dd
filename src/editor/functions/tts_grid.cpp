#include "tts_grid.h"

#include "fields.h"
#include "look.h"

#include <QHeaderView>

#include <algorithm>
#include <cmath>

namespace mr4500x {

// Indexed by TtsColumn; column 0 has the desktop's colour.
constexpr std::array<QRgb, TtsColumnCount> Colours = {0,        GreenText, GreenText, TealText,
                                                      TealText, OliveText, OliveText};

constexpr int FirstDataColumn = 1;
constexpr int LastColumn = static_cast<int>(TtsColumnCount) - 1;
constexpr int RowCount = static_cast<int>(TtsEntryCount);

// In twips.
constexpr double BaseWidth = 770;
constexpr double BaseHeight = 255;
constexpr double NumberColumnWidth = 0.65 * BaseWidth;
constexpr double DataColumnWidth = 1.1 * BaseWidth;
constexpr double DataRowHeight = 1.05 * BaseHeight;
constexpr double HeadingHeight = 2.3 * BaseHeight;

TtsGrid::TtsGrid(QWidget* parent) : CellGrid(RowCount, static_cast<int>(TtsColumnCount), FirstDataColumn, parent) {
  setObjectName(QStringLiteral("gridTTS"));
  setAccessibleName(tr("TTS table, entries 1 to 8"));
  setSelectionMode(SingleSelection);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  verticalHeader()->hide();
  horizontalHeader()->setDefaultAlignment(Qt::AlignCenter | static_cast<Qt::Alignment>(Qt::TextWordWrap));
  for (int column = 0; column <= LastColumn; ++column) {
    const QString heading = column == 0 ? tr("No.") : QString::fromUtf8(LabelOf(static_cast<TtsColumn>(column)));
    setHorizontalHeaderItem(column, new QTableWidgetItem(heading));
  }
  for (int row = 0; row < RowCount; ++row)
    item(row, 0)->setText(QString::number(row + 1));
  FitToFont();
  ShowColours();
}

// Keeps the design's proportions, but never truncates a heading.
void TtsGrid::FitToFont() {
  const QFontMetrics metrics = fontMetrics();
  const int widestLine = metrics.horizontalAdvance(QStringLiteral("Tone A Dur.")) + 14;
  const int dataWidth = std::max(Pixels(DataColumnWidth, *this), widestLine);
  const auto numberWidth = static_cast<int>(std::lround(dataWidth * NumberColumnWidth / DataColumnWidth));
  const int rowHeight = std::max(Pixels(DataRowHeight, *this), metrics.height() + 4);
  const int headingHeight = std::max(Pixels(HeadingHeight, *this), 2 * metrics.lineSpacing() + 8);
  setColumnWidth(0, numberWidth);
  for (int column = FirstDataColumn; column <= LastColumn; ++column)
    setColumnWidth(column, dataWidth);
  verticalHeader()->setDefaultSectionSize(rowHeight);
  horizontalHeader()->setFixedHeight(headingHeight);
  setFixedSize(numberWidth + LastColumn * dataWidth + 2 * frameWidth(),
               headingHeight + RowCount * rowHeight + 2 * frameWidth());
}

QRgb TtsGrid::TextColour(int column) {
  return Colours[static_cast<std::size_t>(column)];
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
      const QColor text = ReadableOn(TextColour(column), desktop.color(QPalette::Base));
      item(row, column)->setForeground(isEnabled() ? QBrush(text) : desktop.brush(QPalette::Disabled, QPalette::Text));
    }
  }
}

void TtsGrid::SetUsed(bool used) {
  setEnabled(used);
  ShowColours();
}

// Selects the current cell, but only while the table has the focus.
void TtsGrid::focusInEvent(QFocusEvent* event) {
  QTableWidget::focusInEvent(event);
  setCurrentCell(currentRow(), currentColumn());
}

void TtsGrid::focusOutEvent(QFocusEvent* event) {
  QTableWidget::focusOutEvent(event);
  clearSelection();
}

} // namespace mr4500x
