#include "channel_grid.h"

#include "fields.h"
#include "frame_parts.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <utility>

namespace mr4500x {
namespace {

struct ColumnStyle {
  int twips;
  std::array<const char*, 2> widest; // the widest texts of the column, whatever the font
};

// clang-format off
constexpr std::array<ColumnStyle, GridColumnCount> ColumnStyles = {{
    {616, {" CH16",     ""}},
    {893, {"000.00000", ""}},
    {539, {"6.25",      "2.5"}},
    {939, {"CTC200.0",  "-DCS000"}},
    {847, {"5T 00000",  "TTS 100"}},
    {732, {"AND",       "OR"}},
    {508, {"OFF",       "ON"}},
    {893, {"000.00000", ""}},
    {539, {"6.25",      "2.5"}},
    {939, {"CTC200.0",  "-DCS000"}},
    {847, {"5T 00000",  "TTS 100"}},
    {654, {"Prohibit",  "Permit"}},
    {508, {"OFF",       "ON"}},
    {616, {"12.5",      "25"}},
    {616, {"Tone B",    "Tone A"}},
}};
// clang-format on

constexpr int RowTwips = 255;            // unit of the row heights
constexpr double ChannelRowFactor = 1.1; // the header's is 2
constexpr int EditorTopTwips = -25;
constexpr int EditorLeftTwips = 10;

constexpr int ColourRole = Qt::UserRole;

QString HeaderText(GridColumn column) {
  return column == GridColumn::ChannelNo ? ChannelGrid::tr("CH No.") : QString::fromUtf8(LabelOf(column));
}
int TableColumn(GridColumn column) {
  return static_cast<int>(column) - 1;
}

QColor ColourOn(const QPalette& palette, CellColour colour) {
  const QColor background = palette.color(QPalette::Base);
  if (colour == CellColour::Green) return ReadableOn(GreenText, background);
  if (colour == CellColour::Teal) return ReadableOn(TealText, background);
  if (colour == CellColour::Navy) return ReadableOn(NavyText, background);
  if (colour == CellColour::Hidden) return background;
  if (colour == CellColour::Grey) return GreyOn(palette);
  return palette.color(QPalette::Text);
}

// Breaks a header text at the space that makes its two lines shortest.
QString OnTwoLines(const QString& text, const QFontMetrics& metrics) {
  QString best = text;
  int narrowest = metrics.horizontalAdvance(text);
  for (qsizetype blank = text.indexOf(' '); blank >= 0; blank = text.indexOf(' ', blank + 1)) {
    const QString broken = text.left(blank) + '\n' + text.mid(blank).trimmed();
    const int width = metrics.size(0, broken).width();
    if (width >= narrowest) continue;
    narrowest = width;
    best = broken;
  }
  return best;
}

class TwoLineHeader : public QHeaderView {
public:
  explicit TwoLineHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionResizeMode(Fixed);
    setMinimumSectionSize(1);
    setDefaultAlignment(Qt::AlignCenter);
  }

protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override {
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    option->text = OnTwoLines(model()->headerData(logicalIndex, Qt::Horizontal).toString(), fontMetrics());
  }
};

// Marks the labels of the selected rows.
class RowLabels : public QHeaderView {
public:
  RowLabels(ChannelGrid& grid, std::function<void(int row, Qt::MouseButton, Qt::KeyboardModifiers)> clicked)
      : QHeaderView(Qt::Vertical, &grid), m_grid(grid), m_clicked(std::move(clicked)) {
    setSectionResizeMode(Fixed);
    setMinimumSectionSize(1);
  }

protected:
  void mousePressEvent(QMouseEvent* event) override {
    const int row = logicalIndexAt(event->pos());
    m_row = row;
    if (row >= 0) m_clicked(row, event->button(), event->modifiers());
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const int row = logicalIndexAt(event->pos());
    if (row < 0 || row == std::exchange(m_row, row) || !event->buttons().testFlag(Qt::LeftButton)) return;
    m_clicked(row, Qt::LeftButton, Qt::ShiftModifier);
  }
  void contextMenuEvent(QContextMenuEvent* event) override { emit m_grid.MenuAsked(event->globalPos()); }
  void paintSection(QPainter* painter, const QRect& place, int row) const override {
    painter->save(); // Qt leaves a different clipping
    QHeaderView::paintSection(painter, place, row);
    painter->restore();
    if (!m_grid.IsRowSelected(row)) return;
    painter->fillRect(place.adjusted(0, 0, -1, -1), palette().highlight());
    QStyleOptionHeader option;
    initStyleOption(&option);
    initStyleOptionForIndex(&option, row);
    option.rect = place;
    option.rect = style()->subElementRect(QStyle::SE_HeaderLabel, &option, this);
    option.palette.setColor(QPalette::ButtonText, palette().color(QPalette::HighlightedText));
    style()->drawControl(QStyle::CE_HeaderLabel, &option, painter, this);
  }

private:
  ChannelGrid& m_grid;
  std::function<void(int, Qt::MouseButton, Qt::KeyboardModifiers)> m_clicked;
  int m_row = -1; // the last one under the mouse
};

// A hidden text stays hidden. Selected rows have a tint of the selection's colour on which texts remain readable.
class ChannelDelegate : public CellDelegate {
public:
  using CellDelegate::CellDelegate;

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    const bool selected = option->state.testFlag(QStyle::State_Selected);
    CellDelegate::initStyleOption(option, index);
    if (selected) {
      const QColor base = option->palette.color(QPalette::Base);
      const float share = base.lightnessF() < 0.5 ? 0.3F : 0.12F;
      option->backgroundBrush = Between(base, option->palette.color(QPalette::Highlight), share);
    }
    if (index.data(ColourRole).toInt() == static_cast<int>(CellColour::Hidden)) option->text.clear();
  }
};

} // namespace

ChannelGrid::ChannelGrid(QWidget* parent)
    : CellGrid(static_cast<int>(ChannelCount), static_cast<int>(GridColumnCount) - 1, 0,
               HeaderText(GridColumn::ChannelNo), parent) {
  setObjectName("gridChannel");
  setAccessibleName(tr("Channels"));
  setItemDelegate(new ChannelDelegate(*this));
  setWordWrap(false);
  setHorizontalHeader(new TwoLineHeader(this));
  setVerticalHeader(new RowLabels(*this, [this](auto... click) { RowClicked(click...); }));
  for (int column = 0; column < columnCount(); ++column) {
    const auto setting = static_cast<GridColumn>(column + 1);
    setHorizontalHeaderItem(column, new QTableWidgetItem(HeaderText(setting)));
    horizontalHeaderItem(column)->setData(Qt::UserRole, SettingName(setting));
  }
  for (int row = 0; row < rowCount(); ++row)
    setVerticalHeaderItem(row, new QTableWidgetItem(tr(" CH%1").arg(row + 1)));
}

QString ChannelGrid::Text(int channel, GridColumn column) const {
  return item(channel, TableColumn(column))->text();
}
void ChannelGrid::SetText(int channel, GridColumn column, const QString& text) {
  item(channel, TableColumn(column))->setText(text);
}

void ChannelGrid::SetColour(int channel, GridColumn first, GridColumn last, CellColour colour) {
  for (int column = TableColumn(first); column <= TableColumn(last); ++column) {
    QTableWidgetItem& cell = *item(channel, column);
    cell.setData(ColourRole, static_cast<int>(colour));
    cell.setForeground(ColourOn(palette(), colour));
    // A screen reader must not read out a hidden text.
    cell.setData(Qt::AccessibleTextRole, colour == CellColour::Hidden ? QVariant(tr("not used")) : QVariant());
  }
}

void ChannelGrid::RefreshColours() {
  for (int row = 0; row < rowCount(); ++row) {
    for (int column = 0; column < columnCount(); ++column) {
      QTableWidgetItem& cell = *item(row, column);
      cell.setForeground(ColourOn(palette(), static_cast<CellColour>(cell.data(ColourRole).toInt())));
    }
  }
}

void ChannelGrid::SelectRows(const std::set<int>& rows) {
  QItemSelection cells;
  for (const int row : rows)
    cells.select(model()->index(row, 0), model()->index(row, columnCount() - 1));
  selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
  verticalHeader()->viewport()->update();
}

std::set<int> ChannelGrid::SelectedRows() const {
  std::set<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows())
    rows.insert(index.row());
  return rows;
}

void ChannelGrid::SelectTo(int row) {
  std::set<int> rows;
  m_lastRow = std::clamp(row, 0, rowCount() - 1);
  for (int between = std::min(currentRow(), m_lastRow); between <= std::max(currentRow(), m_lastRow); ++between)
    rows.insert(between);
  SelectRows(rows);
  ScrollTo(*viewport(), visualRect(model()->index(m_lastRow, currentColumn())));
}

void ChannelGrid::RowClicked(int row, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
  std::set<int> rows = SelectedRows();
  if (button == Qt::RightButton && rows.contains(row)) return;
  if (button == Qt::LeftButton && keys.testFlag(Qt::ShiftModifier)) return SelectTo(row);
  if (button == Qt::LeftButton && keys.testFlag(Qt::ControlModifier)) {
    if (rows.erase(row) == 0) rows.insert(row);
    return SelectRows(rows);
  }
  setCurrentCell(row, currentColumn());
  SelectTo(row);
}

void ChannelGrid::keyPressEvent(QKeyEvent* event) {
  const bool shift = event->modifiers() == Qt::ShiftModifier;
  const int from = SelectedRows().empty() ? currentRow() : m_lastRow;
  if (shift && event->key() == Qt::Key_Space) return SelectTo(currentRow());
  if (shift && event->key() == Qt::Key_Up) return SelectTo(from - 1);
  if (shift && event->key() == Qt::Key_Down) return SelectTo(from + 1);
  if (shift && event->key() == Qt::Key_F10) return AskForMenu();
  if (event->key() == Qt::Key_Escape) UnselectRows();
  CellGrid::keyPressEvent(event);
}

// Shows a hint while only the first channel is in use, as in a new configuration.
void ChannelGrid::paintEvent(QPaintEvent* event) {
  CellGrid::paintEvent(event);
  for (int row = 1; row < rowCount(); ++row)
    if (item(row, 0)->data(ColourRole).toInt() != static_cast<int>(CellColour::Hidden)) return;
  QPainter painter(viewport());
  painter.setPen(GreyOn(palette()));
  const QRect place(0, rowViewportPosition(1), viewport()->width(), rowHeight(1));
  const QString hint = tr("not in use; untick No CH, paste a list, or read a radio");
  painter.fillRect(painter.boundingRect(place, Qt::AlignCenter, hint).adjusted(-4, 0, 4, 0) &
                       place.adjusted(0, 0, 0, -1),
                   palette().base()); // no grid lines through the text
  painter.drawText(place, Qt::AlignCenter, hint);
}

// On cells only the menu key opens the menu. A right click does nothing there.
void ChannelGrid::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) AskForMenu();
}

void ChannelGrid::AskForMenu() {
  emit MenuAsked(viewport()->mapToGlobal(visualRect(currentIndex()).center()));
}

int ChannelGrid::CellWidthNeeded(GridColumn column) const {
  const bool label = column == GridColumn::ChannelNo;
  const QFontMetrics metrics = label ? verticalHeader()->fontMetrics() : fontMetrics();
  int width = 0;
  for (const char* const text : ColumnStyles[static_cast<std::size_t>(column)].widest)
    width = std::max(width, metrics.horizontalAdvance(QLatin1String(text)));
  const int margin =
      style()->pixelMetric(label ? QStyle::PM_HeaderMargin : QStyle::PM_FocusFrameHMargin, nullptr, this);
  return width + 2 * (margin + 1) + 1; // the grid line
}

int ChannelGrid::HeaderWidthNeeded(GridColumn column) const {
  const QFontMetrics metrics = horizontalHeader()->fontMetrics();
  const QString text = OnTwoLines(HeaderText(column), metrics);
  return metrics.size(0, text).width() + 2 * (style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this) + 1);
}

void ChannelGrid::FitToFont(int toneEditorWidth) {
  // The tightest column sets the scale, so that all columns keep their proportions.
  m_pixelsPerTwip = Pixels(1440, *this) / 1440.0;
  for (std::size_t i = 0; i < GridColumnCount; ++i) {
    const auto column = static_cast<GridColumn>(i);
    int needed = std::max(CellWidthNeeded(column), HeaderWidthNeeded(column));
    if (column == GridColumn::RxTone) needed = std::max(needed, toneEditorWidth);
    m_pixelsPerTwip = std::max(m_pixelsPerTwip, needed / static_cast<double>(ColumnStyles[i].twips));
  }
  const int lineHeight = std::max(fontMetrics().height(), horizontalHeader()->fontMetrics().height());
  // A row must fit a line of text with the frame of its editor.
  const double unit = std::max<double>(Pixels(RowTwips, *this), (lineHeight + 6) / ChannelRowFactor);
  const int channelRow = static_cast<int>(std::lround(unit * ChannelRowFactor));
  const int headerRow = static_cast<int>(std::lround(std::max(unit * 2, lineHeight * 2.0 + 4)));

  horizontalHeader()->setFixedHeight(headerRow);
  verticalHeader()->setFixedWidth(Scaled(ColumnStyles[0].twips));
  verticalHeader()->setDefaultSectionSize(channelRow);
  int width = 2 * frameWidth() + verticalHeader()->width();
  for (int column = 0; column < columnCount(); ++column) {
    setColumnWidth(column, Scaled(ColumnStyles[static_cast<std::size_t>(column) + 1].twips));
    width += columnWidth(column);
  }
  setFixedSize(width, headerRow + rowCount() * channelRow + 2 * frameWidth());
}

int ChannelGrid::Scaled(double twips) const {
  return static_cast<int>(std::lround(twips * m_pixelsPerTwip));
}
int ChannelGrid::WidthOf(GridColumn column) const {
  return column == GridColumn::ChannelNo ? verticalHeader()->width() : columnWidth(TableColumn(column));
}

int ChannelGrid::MiddleOfRow(int channel) const {
  return y() + frameWidth() + horizontalHeader()->height() + channel * ChannelRowHeight() +
         (ChannelRowHeight() - 1) / 2; // above the grid line
}

QPoint ChannelGrid::EditorCorner(int channel, GridColumn column, int inset) const {
  int left = x() + Pixels(EditorLeftTwips + inset, *this);
  for (std::size_t i = 0; i < static_cast<std::size_t>(column); ++i)
    left += WidthOf(static_cast<GridColumn>(i));
  return {left, y() + ChannelRowHeight() * (channel + 2) + Pixels(EditorTopTwips, *this)};
}

} // namespace mr4500x
