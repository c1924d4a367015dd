// The grid of 16 channels: cells, colours, sizes and the selected rows. ChannelFrame handles the clicks on cells.
#pragma once

#include "grid_frame.h"

#include <set>

namespace mr4500x {

enum class CellColour {
  Plain,
  Green,
  Teal,
  Navy,
  Grey,
  Hidden, // in the background colour
};

class ChannelGrid : public CellGrid {
  Q_OBJECT
public:
  explicit ChannelGrid(QWidget* parent);

  // Channels are counted from 0.
  [[nodiscard]] QString Text(int channel, GridColumn column) const;
  void SetText(int channel, GridColumn column, const QString& text);
  void SetColour(int channel, GridColumn first, GridColumn last, CellColour colour);
  void RefreshColours(); // after a change of the palette

  // Clicks on the labels and Shift with Space, Up or Down select rows. The current cell does not change.
  void SelectRows(const std::set<int>& rows);
  void UnselectRows() { SelectRows({}); }
  [[nodiscard]] std::set<int> SelectedRows() const;
  [[nodiscard]] bool IsRowSelected(int row) const { return selectionModel()->isRowSelected(row, {}); }

  void FitToFont(int toneEditorWidth); // the least width of the tone column, in pixels
  [[nodiscard]] int WidthOf(GridColumn column) const;
  [[nodiscard]] int ChannelRowHeight() const { return rowHeight(0); }
  [[nodiscard]] int MiddleOfRow(int channel) const; // y in the parent's coordinates
  // The top left corner of an editor over a cell, `inset` twips right of the cell's left edge.
  [[nodiscard]] QPoint EditorCorner(int channel, GridColumn column, int inset) const;

signals:
  void MenuAsked(const QPoint& at); // screen position

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

private:
  void RowClicked(int row, Qt::MouseButton button, Qt::KeyboardModifiers keys);
  void SelectTo(int row); // selects from the current row
  void AskForMenu();
  [[nodiscard]] int Scaled(double twips) const; // converts to pixels with the grid's scale
  [[nodiscard]] int CellWidthNeeded(GridColumn column) const;
  [[nodiscard]] int HeaderWidthNeeded(GridColumn column) const;

  double m_pixelsPerTwip = 1.0 / 15;
  int m_lastRow = 0; // the last row selected with Shift
};

} // namespace mr4500x
