// The grid of 16 channels: its cells with their colours, its measures and its keys. What a click on a cell means is the
// frame's.
#pragma once

#include "channel_record.h"
#include "radio_image.h"

#include <QTableWidget>

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

class ChannelGrid : public QTableWidget {
  Q_OBJECT

public:
  explicit ChannelGrid(QWidget* parent);

  // Channels count from 0.
  [[nodiscard]] QString Text(int channel, GridColumn column) const;
  void SetText(int channel, GridColumn column, const QString& text);
  void SetColour(int channel, GridColumn first, GridColumn last, CellColour colour);
  void RefreshColours(); // after a change of the desktop's colours

  [[nodiscard]] int CurrentChannel() const { return currentRow(); }
  [[nodiscard]] GridColumn CurrentColumn() const { return static_cast<GridColumn>(currentColumn() + 1); }
  void MoveOn(); // to the next cell on the path of the Enter key

  // Takes the measures from the font. The tone column is at least as wide as its editor needs.
  void FitToFont(int toneEditorWidth);
  [[nodiscard]] int Scaled(double twips) const; // in the grid's own scale
  [[nodiscard]] int WidthOf(GridColumn column) const;
  [[nodiscard]] int ChannelRowHeight() const { return rowHeight(0); }
  [[nodiscard]] int MiddleOfRow(int channel) const; // in the coordinates of the parent
  // The corner of an editor over a cell, `inset` twips in from where the columns to its left end.
  [[nodiscard]] QPoint EditorCorner(int channel, GridColumn column, int inset) const;

  bool ignoresInput = false; // while the handler of a check box runs

signals:
  void CellActivated(); // the left button let go on the current cell, or Space
  void OtherKeyPressed();

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void SetUpHeaders();
  [[nodiscard]] int CellWidthNeeded(GridColumn column) const;
  [[nodiscard]] int HeaderWidthNeeded(GridColumn column) const;

  QLabel* m_corner;
  double m_pixelsPerTwip = 1.0 / 15;
  bool m_pressed = false; // the left button went down on a cell
};

} // namespace mr4500x
