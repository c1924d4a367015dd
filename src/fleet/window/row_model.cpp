#include "row_model.h"

#include "port_card.h"
#include "shown_text.h"
#include "words.h"

#include <QIcon>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace mr4500x {
namespace {

struct Column {
  const char* title;
  QVariant (*value)(const JournalRow& row);
};

// "0:12 ago"
QString LastReport(int seconds) {
  if (seconds < 0) return {};
  return RowModel::tr("%1:%2 ago").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

constexpr std::array Columns = {
    Column{"State", [](const JournalRow& row) -> QVariant { return Shown(WordFor(row.state)); }},
    Column{"Row", [](const JournalRow& row) -> QVariant { return static_cast<qulonglong>(row.row); }},
    Column{"Label", [](const JournalRow& row) -> QVariant { return Shown(row.label); }},
    Column{"Only for", [](const JournalRow& row) -> QVariant { return Shown(row.radio); }},
    Column{"Radio", [](const JournalRow& row) -> QVariant { return Shown(row.idNumber); }},
    Column{"Bench", [](const JournalRow& row) -> QVariant { return Shown(row.bench); }},
    Column{"Last report", [](const JournalRow& row) -> QVariant { return LastReport(row.silentFor); }},
};

QPixmap SignOf(RowState state) {
  constexpr int Side = 32; // drawn smaller
  QPixmap picture(Side, Side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  const auto [sign, colour] = StyleOf(state);
  painter.fillRect(picture.rect(), colour);
  DrawSign(painter, QRectF(6, 6, Side - 12, Side - 12), sign, Qt::white);
  return picture;
}

} // namespace

void RowModel::Show(std::vector<JournalRow> rows) {
  beginResetModel();
  m_rows = std::move(rows);
  for (JournalRow& row : m_rows)
    std::string().swap(row.content); // a list from the journal has none
  endResetModel();
}

void RowModel::Update(const std::vector<JournalRow>& rows) {
  for (const JournalRow& row : rows) {
    const auto at = std::ranges::lower_bound(m_rows, row.row, {}, &JournalRow::row);
    const int place = static_cast<int>(at - m_rows.begin());
    if (at == m_rows.end() || at->row != row.row) { // of a plan without a list
      beginInsertRows({}, place, place);
      m_rows.insert(at, row);
      endInsertRows();
    } else if (*at != row) {
      *at = row;
      emit dataChanged(index(place, 0), index(place, columnCount() - 1));
    }
  }
}

int RowModel::Count(RowState state) const {
  return static_cast<int>(std::ranges::count(m_rows, state, &JournalRow::state));
}

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int RowModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(Columns.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) return {};
  const JournalRow& row = m_rows[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
    return Columns[static_cast<std::size_t>(index.column())].value(row);
  if (role == Qt::DecorationRole && index.column() == 0) {
    static const std::array<QPixmap, 3> signs = {SignOf(RowState::Free), SignOf(RowState::Taken),
                                                 SignOf(RowState::Done)};
    return QIcon(signs[static_cast<std::size_t>(row.state)]);
  }
  return {};
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool isColumn = orientation == Qt::Horizontal && section >= 0 && section < columnCount();
  if (!isColumn || role != Qt::DisplayRole) return {};
  return tr(Columns[static_cast<std::size_t>(section)].title);
}

} // namespace mr4500x
