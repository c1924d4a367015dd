// The base of the channel grid and the TTS table: cells that open an editor, and their keys and clicks.
#pragma once

#include <QTableWidget>

namespace mr4500x {

class CellGrid : public QTableWidget {
  Q_OBJECT
public:
  void MoveOn(); // to the next cell, row by row; from the last cell to the first

signals:
  void CellOpened(); // the current cell, by a left click or Space
  void OtherKeyPressed();

protected:
  // Columns before `firstColumn` are labels, which ignore clicks.
  CellGrid(int rows, int columns, int firstColumn, QWidget* parent);

  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  int m_firstColumn;
  bool m_pressed = false; // the left button went down on a cell
};

} // namespace mr4500x
