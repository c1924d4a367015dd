// The TTS table alone: headings, sizes, colours, the path of Enter and where a click counts. What opens over its cells
// is its frame's business.
//
// The heading row is the table's header, the heading column its column 0; so the columns count as TtsColumn does, and
// entry n is row n - 1.
#pragma once

#include "configuration.h"

#include <QTableWidget>

namespace mr4500x {

class TtsGrid : public QTableWidget {
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
  [[nodiscard]] QColor TextColour(int column) const;

  void keyboardSearch(const QString& /*search*/) override {} // typing does not jump

signals:
  void CellOpened(int row, int column); // a click or Space on a cell with data

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  void MoveOn();
};

} // namespace mr4500x
