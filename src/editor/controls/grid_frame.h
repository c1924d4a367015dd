// A frame around a grid whose cells are edited in a text box or a list that opens over them, one at a time. What a text
// has to look like and where an editor stands is left to the frames that derive from it.
#pragma once

#include "message_view.h"

#include <QGroupBox>
#include <QTimer>

#include <optional>

namespace mr4500x {

class CellGrid;
class ChoiceBox;
class EntryBox;

class GridFrame : public QGroupBox {
  Q_OBJECT
public:
  void CommitEditors();                      // an open editor's text is checked, stored and the editor hidden
  void HideEditors();                        // without taking their text
  [[nodiscard]] EntryBox* OpenEntry() const; // nullptr while the text box is hidden

signals:
  void Changed();

protected:
  // `refusal` is the message about an entry that can't be read.
  GridFrame(const QString& title, const char* refusal, MessageView& messages, QWidget* parent);
  void SetUp(CellGrid& grid, EntryBox& entry, ChoiceBox& list);

  virtual void CellOpened(int row, int column) = 0;
  // What a typed text puts into the open cell. Nothing where it can't be read.
  [[nodiscard]] virtual std::optional<QString> CheckedEntry(const QString& typed) const = 0;
  virtual void Picked(const QString& /*text*/) {} // the list's text has been stored
  virtual void EntryConfirmed() {}                // Enter has ended an entry
  virtual void LayOut() = 0;                      // takes measures and colours from the desktop

  void ShowEditor(QWidget& editor, const QRect& place, QRgb colour);
  void RefuseEntry(); // shows the message and the cell's own text
  [[nodiscard]] QString OpenText() const;
  void Store(const QString& text); // in the open cell

  [[nodiscard]] MessageView& Messages() const { return m_messages; }
  [[nodiscard]] int OpenRow() const { return m_row; }
  [[nodiscard]] int OpenColumn() const { return m_column; }

  void changeEvent(QEvent* event) override;

private:
  const char* m_refusal;
  MessageView& m_messages;
  CellGrid* m_grid = nullptr;
  EntryBox* m_entry = nullptr;
  ChoiceBox* m_list = nullptr;
  int m_row = 0, m_column = 0; // of the cell that was opened last
  bool m_closing = false;      // the focus that leaves an editor means nothing
  QTimer m_newLooks;           // the desktop's font or colours have changed
};

} // namespace mr4500x
