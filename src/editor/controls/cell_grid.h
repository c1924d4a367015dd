// What the channel grid and the TTS table share: cells that open rather than take text, and their keys and clicks.
#pragma once

#include <QTableWidget>

namespace mr4500x {

class CellGrid : public QTableWidget {
  Q_OBJECT
public:
  void MoveOn(); // along the row, then to the next one, and from the last cell to the first

signals:
  void CellOpened(); // the current one, by the left button let go on it or by Space
  void OtherKeyPressed();

protected:
  // Columns before the first one hold labels, which take no click.
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
