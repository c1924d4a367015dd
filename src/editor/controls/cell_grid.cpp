#include "cell_grid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

namespace mr4500x {

CellGrid::CellGrid(int rows, int columns, int firstColumn, QWidget* parent)
    : QTableWidget(rows, columns, parent), m_firstColumn(firstColumn) {
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setAutoScroll(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setCornerButtonEnabled(false);
  for (QHeaderView* const header : {horizontalHeader(), verticalHeader()}) {
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(1);
  }
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      auto* const cell = new QTableWidgetItem;
      cell->setTextAlignment(Qt::AlignCenter);
      cell->setFlags(column < firstColumn ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
      setItem(row, column, cell);
    }
  }
  setCurrentCell(0, firstColumn, QItemSelectionModel::NoUpdate);
}

void CellGrid::MoveOn() {
  if (currentColumn() < columnCount() - 1)
    setCurrentCell(currentRow(), currentColumn() + 1);
  else
    setCurrentCell((currentRow() + 1) % rowCount(), m_firstColumn);
}

void CellGrid::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QModelIndex cell = indexAt(event->pos());
  m_pressed = cell.isValid() && cell.column() >= m_firstColumn;
  if (m_pressed) setCurrentIndex(cell);
}

void CellGrid::mouseMoveEvent(QMouseEvent* /*event*/) {} // dragging does not change the current cell

void CellGrid::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !m_pressed) return;
  m_pressed = false;
  const bool onLabels = event->pos().x() < columnViewportPosition(m_firstColumn) || event->pos().y() < 0;
  if (!onLabels) emit CellOpened();
}

void CellGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event); // two quick clicks are two clicks
}

void CellGrid::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    MoveOn();
    return;
  case Qt::Key_Space:
    emit CellOpened();
    return;
  case Qt::Key_Tab:
  case Qt::Key_Backtab:
  case Qt::Key_Delete:
    break;
  default:
    if (event->text().isEmpty()) break;
    // Not passed on: the table would search for the character.
    emit OtherKeyPressed();
    return;
  }
  QTableWidget::keyPressEvent(event);
}

} // namespace mr4500x
