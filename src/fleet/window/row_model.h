// The rows of a plan as a table.
#pragma once

#include "journal.h"

#include <QAbstractTableModel>

#include <array>
#include <vector>

namespace mr4500x {

class RowModel final : public QAbstractTableModel {
public:
  using QAbstractTableModel::QAbstractTableModel;

  void Show(std::vector<JournalRow> rows);
  void Update(const std::vector<JournalRow>& rows); // the changed ones
  [[nodiscard]] const std::vector<JournalRow>& Rows() const { return m_rows; }
  [[nodiscard]] int Count(RowState state) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  std::vector<JournalRow> m_rows;
};

} // namespace mr4500x
