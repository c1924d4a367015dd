// The TTS table: headings, sizes and colours. Column 0 holds the entry numbers, so columns are counted as in TtsColumn;
// entry n is row n - 1.
#pragma once

#include "cell_grid.h"
#include "configuration.h"

namespace mr4500x {

class TtsGrid : public CellGrid {
  Q_OBJECT
public:
  explicit TtsGrid(QWidget* parent);

  void SetText(int row, int column, const QString& text) { item(row, column)->setText(text); }
  [[nodiscard]] QString Text(int row, int column) const { return item(row, column)->text(); }
  void SetUsed(bool used); // disables and greys the table
  void ShowColours();      // applies the current palette
  void FitToFont();
  [[nodiscard]] static QRgb TextColour(int column); // for a light background

protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

} // namespace mr4500x
