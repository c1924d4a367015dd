#include "grid_frame.h"

#include "frame_parts.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <algorithm>

namespace mr4500x {

CellGrid::CellGrid(int rows, int columns, int firstColumn, const QString& corner, QWidget* parent)
    : QTableWidget(rows, columns, parent), m_firstColumn(firstColumn), m_corner(new QLabel(corner, this)) {
  setItemDelegate(new CellDelegate(*this));
  setSelectionMode(NoSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setAutoScroll(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setCornerButtonEnabled(false);
  m_corner->setAlignment(Qt::AlignCenter);
  m_corner->setAutoFillBackground(true);
  m_corner->setAttribute(Qt::WA_TransparentForMouseEvents);
  for (QHeaderView* const header : {horizontalHeader(), verticalHeader()}) {
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(1);
  }
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      auto* const cell = new QTableWidgetItem;
      cell->setTextAlignment(Qt::AlignCenter);
      cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
      setItem(row, column, cell);
    }
  }
  for (int column = 0; column < firstColumn; ++column)
    setColumnHidden(column, true);
  m_current = model()->index(0, firstColumn);
}

// A hidden grid has no current cell, because screen readers would mistake it for the one with the focus.
void CellGrid::showEvent(QShowEvent* event) {
  QTableWidget::showEvent(event);
  const QSignalBlocker unmoved(selectionModel()); // no scroll of the panel
  if (!currentIndex().isValid()) selectionModel()->setCurrentIndex(m_current, QItemSelectionModel::NoUpdate);
  KeepLabelsInView();
}

void CellGrid::hideEvent(QHideEvent* event) {
  QTableWidget::hideEvent(event);
  m_pressed = false; // the release still arrives
  if (currentIndex().isValid()) m_current = currentIndex();
  setCurrentIndex({});
}

void CellGrid::updateGeometries() {
  QTableWidget::updateGeometries();
  KeepLabelsInView();
}

void CellGrid::KeepLabelsInView() {
  const QPoint edge(frameWidth(), frameWidth());
  QRect seen = rect();
  for (const QWidget* around = this; !around->isWindow(); around = around->parentWidget())
    seen &= QRect(mapFrom(around->parentWidget(), QPoint()), around->parentWidget()->size());
  const QSize labels(verticalHeader()->width(), horizontalHeader()->height());
  const int left = std::max(edge.x(), std::min(seen.left(), width() - labels.width() - edge.x()));
  const int top = std::max(edge.y(), std::min(seen.top(), height() - labels.height() - edge.y()));
  verticalHeader()->move(left, edge.y() + labels.height());
  horizontalHeader()->move(edge.x() + labels.width(), top);
  m_corner->setGeometry(QRect(QPoint(left, top), labels));
  m_corner->raise();
}

void CellGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableWidget::currentChanged(current, previous);
  ScrollToCurrent();
}

void CellGrid::ScrollToCurrent() {
  const QRect cell = visualRect(currentIndex());
  if (currentIndex().isValid())
    ScrollTo(*viewport(), cell.adjusted(-verticalHeader()->width(), -horizontalHeader()->height(), cell.width() / 2,
                                        cell.height() / 2));
}

void CellGrid::MoveOn() {
  if (currentColumn() < columnCount() - 1)
    setCurrentCell(currentRow(), currentColumn() + 1);
  else
    setCurrentCell((currentRow() + 1) % rowCount(), m_firstColumn);
}

void CellGrid::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QModelIndex cell = indexAt(event->pos());
  m_pressed = cell.isValid() && cell.column() >= m_firstColumn;
  if (m_pressed) setCurrentIndex(cell);
}

void CellGrid::mouseMoveEvent(QMouseEvent* /*event*/) {} // dragging does not change the current cell

void CellGrid::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !m_pressed) return;
  m_pressed = false;
  if (event->pos().x() >= 0 && event->pos().y() >= 0) emit CellOpened(); // not on the labels
}

void CellGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event); // a double click counts as two clicks
}

void CellGrid::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    MoveOn();
    return;
  case Qt::Key_Space:
    emit CellOpened();
    return;
  case Qt::Key_Tab:
  case Qt::Key_Backtab:
  case Qt::Key_Delete:
    break;
  default:
    if (event->text().isEmpty()) break;
    // Not passed on, because the table would search for the character.
    emit OtherKeyPressed();
    return;
  }
  QTableWidget::keyPressEvent(event);
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  if (index != m_grid.currentIndex() || !m_grid.isEnabled()) return;
  const QPalette& colours = option.palette;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing, false);
  painter->setClipRect(option.rect);
  const QColor framed = ReadableOn(colours.color(QPalette::Highlight).rgb(), colours.color(QPalette::Base));
  painter->setPen(QPen(m_grid.hasFocus() ? framed : GreyOn(colours), 4)); // clipped to 2
  painter->drawRect(option.rect);
  painter->restore();
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
}

GridFrame::GridFrame(const QString& objectName, const QString& title, const char* refusal, MessageView& messages)
    : SettingsFrame(objectName, title), m_refusal(refusal), m_messages(messages) {
  m_newLooks.setSingleShot(true);
  connect(&m_newLooks, &QTimer::timeout, this, [this] { LayOut(); });
}

void GridFrame::SetUp(CellGrid& grid, EntryBox& entry, ChoiceBox& list) {
  m_grid = &grid;
  m_entry = &entry;
  m_list = &list;
  entry.CopyAndPasteWhole();
  entry.ShowsMessageWhen([this] { return OpenEntry() != nullptr && !CheckedEntry(m_entry->text()); });
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
  const QRect cell = m_grid->visualRect(m_grid->currentIndex());
  const QRect text = cell.translated(m_grid->viewport()->mapTo(this, QPoint()) - place.topLeft());
  &editor == m_entry ? m_entry->StandOver(text) : m_list->StandOver(text);
  editor.raise();
  editor.show();
  editor.setFocus();
  if (&editor == m_entry) m_entry->SelectEntry();
}

EntryBox* GridFrame::OpenEntry() const {
  return m_entry->isHidden() ? nullptr : m_entry;
}
bool GridFrame::HasOpenEditor() const {
  return !m_entry->isHidden() || !m_list->isHidden();
}
QString GridFrame::OpenText() const {
  return m_grid->item(m_row, m_column)->text();
}

std::optional<QString> GridFrame::EditedText() const {
  if (OpenEntry() != nullptr) return CheckedEntry(m_entry->text());
  // A cell text that is not in the list is shown without a selection, and kept.
  const bool isPicked = !m_list->isHidden() && m_list->currentIndex() >= 0;
  return isPicked ? std::optional(m_list->currentText()) : std::nullopt;
}

void GridFrame::Store(const QString& text) {
  if (text == OpenText()) return;
  m_grid->item(m_row, m_column)->setText(text);
  emit Changed();
}

void GridFrame::PostStatus(const QString& message) {
  QMetaObject::invokeMethod(
      this, [this, message] { emit StatusMessage(message); }, Qt::QueuedConnection);
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
  const std::optional<QString> edited = EditedText();
  if (!edited && OpenEntry() != nullptr) {
    RefuseEntry();
  } else if (edited) {
    if (OpenEntry() != nullptr) EntryTaken(m_entry->text(), *edited);
    const bool isOther = *edited != OpenText();
    Store(*edited);
    if (isOther && OpenEntry() == nullptr) Picked(*edited);
  }
  HideEditors();
}

void GridFrame::HideEditors() {
  const QScopedValueRollback guard(m_closing, true);
  for (QWidget* const editor : std::initializer_list<QWidget*>{m_entry, m_list}) {
    // Hiding the control with the focus would move the focus to an arbitrary neighbour.
    if (editor->hasFocus()) m_grid->setFocus();
    editor->hide();
  }
}

// Opens the next or previous cell that has an editor.
void GridFrame::OpenNext(int step) {
  const int columns = m_grid->columnCount(), cells = m_grid->rowCount() * columns;
  for (int cell = m_row * columns + m_column + step; cell >= 0 && cell < cells; cell += step) {
    if (!HasEditor(cell / columns, cell % columns)) continue;
    m_grid->setCurrentCell(cell / columns, cell % columns);
    return emit m_grid->CellOpened();
  }
}

// Tab and Shift+Tab in an editor open another cell, or return to the grid. The focus must not move to the check box
// that follows, where Space would switch a channel off.
bool GridFrame::focusNextPrevChild(bool next) {
  if (!m_entry->hasFocus() && !m_list->hasFocus()) return SettingsFrame::focusNextPrevChild(next);
  const bool isValid = OpenEntry() == nullptr || EditedText();
  CommitEditors();
  if (isValid) OpenNext(next ? 1 : -1);
  return true;
}

void GridFrame::changeEvent(QEvent* event) {
  SettingsFrame::changeEvent(event);
  const QEvent::Type type = event->type();
  if (type == QEvent::FontChange || type == QEvent::StyleChange || type == QEvent::PaletteChange)
    m_newLooks.start(); // after the child controls have also changed
}

} // namespace mr4500x
