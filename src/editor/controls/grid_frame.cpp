#include "grid_frame.h"

#include "cell_grid.h"
#include "choice_box.h"
#include "entry_box.h"
#include "frame_parts.h"
#include "look.h"

#include <QEvent>
#include <QScopedValueRollback>

namespace mr4500x {

GridFrame::GridFrame(const QString& title, const char* refusal, MessageView& messages, QWidget* parent)
    : QGroupBox(title, parent), m_refusal(refusal), m_messages(messages) {
  m_newLooks.setSingleShot(true);
  connect(&m_newLooks, &QTimer::timeout, this, [this] { LayOut(); });
}

void GridFrame::SetUp(CellGrid& grid, EntryBox& entry, ChoiceBox& list) {
  m_grid = &grid;
  m_entry = &entry;
  m_list = &list;
  entry.CopyAndPasteWhole();
  entry.hide();
  list.hide();
  connect(&grid, &CellGrid::CellOpened, this, [this] {
    CommitEditors(); // an inactive window sends no focus-out that would commit
    m_row = m_grid->currentRow();
    m_column = m_grid->currentColumn();
    CellOpened(m_row, m_column);
  });
  connect(&entry, &EntryBox::Confirmed, this, [this] {
    CommitEditors();
    m_grid->setFocus();
    EntryConfirmed();
  });
  connect(&entry, &EntryBox::Escaped, this, &GridFrame::HideEditors);
  connect(&entry, &EntryBox::Left, this, &GridFrame::CommitEditors);
  connect(&list, &ChoiceBox::Confirmed, this, &GridFrame::CommitEditors);
  connect(&list, &ChoiceBox::Escaped, this, &GridFrame::HideEditors);
  connect(&list, &ChoiceBox::Left, this, &GridFrame::CommitEditors);
}

void GridFrame::ShowEditor(QWidget& editor, const QRect& place, QRgb colour) {
  SetTextColour(editor, colour, *this);
  editor.setGeometry(place);
  editor.raise();
  editor.show();
  editor.setFocus();
  if (&editor == m_entry) m_entry->SelectEntry();
}

EntryBox* GridFrame::OpenEntry() const {
  return m_entry->isHidden() ? nullptr : m_entry;
}
QString GridFrame::OpenText() const {
  return m_grid->item(m_row, m_column)->text();
}

void GridFrame::Store(const QString& text) {
  if (text == OpenText()) return;
  m_grid->item(m_row, m_column)->setText(text);
  emit Changed();
}

void GridFrame::RefuseEntry() {
  {
    const QScopedValueRollback guard(m_closing, true);
    ShowEntryError(m_messages, m_refusal);
  }
  m_entry->SetWholeText(OpenText());
}

void GridFrame::CommitEditors() {
  if (m_closing) return;
  if (OpenEntry() != nullptr) {
    if (const auto text = CheckedEntry(m_entry->text()))
      Store(*text);
    else
      RefuseEntry();
  }
  // A cell text that is not in the list has no selection, and stays.
  if (!m_list->isHidden() && m_list->currentIndex() >= 0) {
    const QString text = m_list->currentText();
    Store(text);
    Picked(text);
  }
  HideEditors();
}

void GridFrame::HideEditors() {
  const QScopedValueRollback guard(m_closing, true);
  for (QWidget* const editor : std::initializer_list<QWidget*>{m_entry, m_list}) {
    // Hiding the control with the focus would move it to any neighbour.
    if (editor->hasFocus()) m_grid->setFocus();
    editor->hide();
  }
}

void GridFrame::changeEvent(QEvent* event) {
  QGroupBox::changeEvent(event);
  const QEvent::Type type = event->type();
  if (type == QEvent::FontChange || type == QEvent::StyleChange || type == QEvent::PaletteChange)
    m_newLooks.start(); // after the child controls have changed too
}

} // namespace mr4500x
