// A frame around a grid. One cell at a time is edited in a text box or a list that opens over the cell. Derived frames
// check the entries and place the editors.
#pragma once

#include "message_view.h"
#include "settings_frame.h"

#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTimer>

#include <optional>

class QLabel;

namespace mr4500x {

class CellGrid : public QTableWidget {
  Q_OBJECT
public:
  void MoveOn(); // moves to the next cell, row by row, and from the last cell to the first
  // In a scrolled panel the labels of rows and columns stay at the edge of the visible part, over the cells.
  void KeepLabelsInView();
  void ScrollToCurrent(); // scrolls the panel to the current cell, with its labels beside it

signals:
  void CellOpened(); // the current cell, by a left click or Space
  void OtherKeyPressed();

protected:
  // Columns before `firstColumn` are hidden. `corner` is the heading of the row labels.
  CellGrid(int rows, int columns, int firstColumn, const QString& corner, QWidget* parent);

  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void updateGeometries() override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
  int m_firstColumn;
  QLabel* m_corner;
  QPersistentModelIndex m_current; // while hidden
  bool m_pressed = false;          // the left button went down on a cell
};

// Marks the current cell with a frame instead of the selection's background, so that its text keeps its colour. The
// frame is grey while the grid does not have the focus.
class CellDelegate : public QStyledItemDelegate {
public:
  explicit CellDelegate(CellGrid& grid) : QStyledItemDelegate(&grid), m_grid(grid) {}
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
  CellGrid& m_grid;
};

class GridFrame : public SettingsFrame {
  Q_OBJECT
public:
  void CommitEditors();                      // checks and stores the open editor's text, then hides it
  void HideEditors();                        // without storing their text
  [[nodiscard]] EntryBox* OpenEntry() const; // nullptr if the text box is hidden
  [[nodiscard]] bool HasOpenEditor() const;
  virtual void KeepLabelsInView() { m_grid->KeepLabelsInView(); }

signals:
  void StatusMessage(const QString& message); // for the status bar

protected:
  // `refusal` is the message about an invalid entry.
  GridFrame(const QString& objectName, const QString& title, const char* refusal, MessageView& messages);
  void SetUp(CellGrid& grid, EntryBox& entry, ChoiceBox& list);

  virtual void CellOpened(int row, int column) = 0;
  // The text to store for a typed one, or nullopt if it is invalid.
  [[nodiscard]] virtual std::optional<QString> CheckedEntry(const QString& typed) const = 0;
  [[nodiscard]] virtual bool HasEditor(int row, int column) const = 0; // whether CellOpened would open an editor
  virtual void Picked(const QString& /*text*/) {}                      // after the list's text was stored
  virtual void EntryConfirmed() {}                                     // after Enter
  virtual void EntryTaken(const QString& /*typed*/, const QString& /*taken*/) {}
  virtual void LayOut() = 0; // applies the current font and palette

  void ShowEditor(QWidget& editor, const QRect& place, QRgb colour);
  void RefuseEntry(); // shows the message and restores the cell's text
  [[nodiscard]] QString OpenText() const;
  [[nodiscard]] std::optional<QString> EditedText() const; // what a commit would store, or nullopt
  void Store(const QString& text);                         // stores the text in the open cell
  void PostStatus(const QString& message); // emitted after the changes of the action, which end a message

  [[nodiscard]] MessageView& Messages() const { return m_messages; }
  [[nodiscard]] int OpenRow() const { return m_row; }
  [[nodiscard]] int OpenColumn() const { return m_column; }

  void changeEvent(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

private:
  void OpenNext(int step);

  const char* m_refusal;
  MessageView& m_messages;
  CellGrid* m_grid = nullptr;
  EntryBox* m_entry = nullptr;
  ChoiceBox* m_list = nullptr;
  int m_row = 0, m_column = 0; // the cell that was opened last
  bool m_closing = false;      // ignore the focus leaving an editor
  QTimer m_newLooks;           // after a change of font, style or palette
};

} // namespace mr4500x
