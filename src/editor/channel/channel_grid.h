// The grid of 16 channels: cells, colours and sizes. ChannelFrame handles the clicks.
#pragma once

#include "grid_frame.h"

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

  void FitToFont(int toneEditorWidth); // the least width of the tone column, in pixels
  [[nodiscard]] int WidthOf(GridColumn column) const;
  [[nodiscard]] int ChannelRowHeight() const { return rowHeight(0); }
  [[nodiscard]] int MiddleOfRow(int channel) const; // in the parent's coordinates
  // The top left corner of an editor over a cell, `inset` twips right of the cell's left edge.
  [[nodiscard]] QPoint EditorCorner(int channel, GridColumn column, int inset) const;

private:
  [[nodiscard]] int Scaled(double twips) const; // in the grid's own scale
  [[nodiscard]] int CellWidthNeeded(GridColumn column) const;
  [[nodiscard]] int HeaderWidthNeeded(GridColumn column) const;

  double m_pixelsPerTwip = 1.0 / 15;
};

} // namespace mr4500x
