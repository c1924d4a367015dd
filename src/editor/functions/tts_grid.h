// The TTS table alone: headings, sizes and colours. What opens over its cells is its frame's business.
//
// The heading row is the table's header, the heading column its column 0; so the columns count as TtsColumn does, and
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
  // Out of use: disabled and greyed.
  void SetUsed(bool used);
  // Takes colours and sizes from the desktop anew.
  void ShowColours();
  void FitToFont();
  [[nodiscard]] static QRgb TextColour(int column); // as designed

protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

} // namespace mr4500x
