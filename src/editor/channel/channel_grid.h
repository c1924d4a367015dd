// The grid of 16 channels: its cells with their colours and its measures. What a click on a cell means is the frame's.
#pragma once

#include "cell_grid.h"
#include "channel_record.h"
#include "radio_image.h"

class QLabel;

namespace mr4500x {

enum class CellColour {
  Plain,
  Green,
  Teal,
  Navy,
  Grey,
  Hidden, // the background's own colour: the text cannot be seen
};

class ChannelGrid : public CellGrid {
  Q_OBJECT

public:
  explicit ChannelGrid(QWidget* parent);

  // Channels count from 0.
  [[nodiscard]] QString Text(int channel, GridColumn column) const;
  void SetText(int channel, GridColumn column, const QString& text);
  void SetColour(int channel, GridColumn first, GridColumn last, CellColour colour);
  void RefreshColours(); // after a change of the desktop's colours

  // Takes the measures from the font. The tone column is at least as wide as its editor needs.
  void FitToFont(int toneEditorWidth);
  [[nodiscard]] int Scaled(double twips) const; // in the grid's own scale
  [[nodiscard]] int WidthOf(GridColumn column) const;
  [[nodiscard]] int ChannelRowHeight() const { return rowHeight(0); }
  [[nodiscard]] int MiddleOfRow(int channel) const; // in the coordinates of the parent
  // The corner of an editor over a cell, `inset` twips in from where the columns to its left end.
  [[nodiscard]] QPoint EditorCorner(int channel, GridColumn column, int inset) const;

private:
  void SetUpHeaders();
  [[nodiscard]] int CellWidthNeeded(GridColumn column) const;
  [[nodiscard]] int HeaderWidthNeeded(GridColumn column) const;

  QLabel* m_corner;
  double m_pixelsPerTwip = 1.0 / 15;
};

} // namespace mr4500x
