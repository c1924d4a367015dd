#include "channel_list.h"

#include "columns.h"
#include "text.h"

#include <algorithm>
#include <set>
#include <span>

namespace mr4500x {
namespace {

constexpr std::string_view NumberColumn = "number", LocationColumn = "Location";

class ListReader {
public:
  ListReader(const FieldTexts& texts, std::optional<std::size_t> first) : m_texts(texts), m_first(first) {}

  ChannelList Read(std::string_view bytes) {
    const std::vector<CsvRow> rows = ReadCsv(bytes, m_texts.decimalSeparator).rows;
    std::span<const CsvRow> lines = rows;
    if (rows.empty()) {
      if (!m_first) Refuse({1, "", "", Refused::NoHeading});
    } else if (ReadHeading(rows.front(), rows.size(), lines)) {
      for (const CsvRow& row : lines)
        if (!ReadRow(row)) break;
    }
    return std::move(m_list);
  }

private:
  void Refuse(RefusedCell refused) { m_list.bad.push_back(std::move(refused)); }

  // False if the lines below can't be read.
  bool ReadHeading(const CsvRow& heading, std::size_t rows, std::span<const CsvRow>& lines) {
    for (const std::string& cell : heading.cells)
      m_names.push_back(OneLine(cell));
    while (m_names.size() > 1 && m_names.back().empty())
      m_names.pop_back();
    if (m_names.size() > MostColumns || rows > MostChannelRows)
      return Refuse({heading.line, "", "", Refused::TooLarge}), false;
    m_isExchanged = IsExchangeList(m_names);
    FindColumns();
    const auto isFound = [](const ChannelColumn* column) { return column != nullptr; };
    const bool isUnknown = std::ranges::none_of(m_columns, isFound);
    if (isUnknown && (!m_first || IsOfWords())) return Refuse({heading.line, "", "", Refused::UnknownHeading}), false;
    if (isUnknown) return TakeGridColumns(), true;
    if (!heading.isWhole) return Refuse({heading.line, "", "", Refused::BrokenQuotes}), false;
    lines = lines.subspan(1);
    m_firstPlace = heading.place + 1;
    m_list.hasHeading = CheckHeading(heading.line);
    const auto isZero = [&](const CsvRow& row) { return CellOf(row, m_number) == "0"; };
    m_base = m_isExchanged && std::ranges::any_of(lines, isZero) ? 0 : 1;
    return m_list.hasHeading || (m_first && !m_isExchanged); // otherwise report further errors of a pasted text
  }

  // Whether the first line is a heading, not a channel.
  [[nodiscard]] bool IsOfWords() const {
    const auto hasDigit = [](const std::string& cell) { return std::ranges::any_of(cell, IsDigit); };
    return !m_names.front().empty() && std::ranges::none_of(m_names, hasDigit);
  }

  void FindColumns() {
    const Field* last = nullptr;
    for (const std::string& name : m_names) {
      m_columns.push_back(!m_isExchanged ? FindChannelColumn(name, last) : name.empty() ? nullptr : Unused());
      if (m_columns.back() != nullptr) last = m_columns.back()->field;
    }
  }
  static const ChannelColumn* Unused() { return &GridColumns().front(); } // no setting

  void TakeGridColumns() {
    const bool isNumbered = Lower(m_names.front()).starts_with("ch") && ChannelNumberIn(m_names.front());
    m_columns.clear();
    for (const ChannelColumn& column : GridColumns())
      if (isNumbered || column.field != nullptr) m_columns.push_back(&column);
  }

  // The setting that a heading names, or "".
  [[nodiscard]] std::string_view KeyOf(std::size_t i) const {
    if (m_isExchanged) return IsExchangeColumn(m_names[i]) ? std::string_view(m_names[i]) : "";
    if (m_columns[i] == nullptr) return "";
    return m_columns[i]->field != nullptr ? m_columns[i]->field->key : NumberColumn;
  }

  bool CheckHeading(std::size_t line) {
    std::set<std::string_view> seen;
    m_number = m_names.size();
    for (std::size_t i = 0; i < m_names.size(); ++i) {
      const std::string_view key = KeyOf(i);
      if (m_names[i].empty()) continue;
      if (key.empty() && m_isExchanged)
        m_list.leftOut.push_back(Shortened(m_names[i]));
      else if (key.empty() || !seen.insert(key).second)
        Refuse({line, m_names[i], "", key.empty() ? Refused::UnknownColumn : Refused::ColumnTwice});
      else if (key == (m_isExchanged ? LocationColumn : NumberColumn))
        m_number = i;
      else
        continue;
      m_columns[i] = Unused();
    }
    if (m_number == m_names.size() && !m_first) Refuse({line, std::string(NumberColumn), "", Refused::ColumnMissing});
    return m_list.bad.empty();
  }

  static std::string CellOf(const CsvRow& row, std::size_t column) {
    return column < row.cells.size() ? OneLine(row.cells[column]) : "";
  }

  // The number of the row's channel, or nullopt if it is refused.
  std::optional<std::size_t> ChannelOf(const CsvRow& row) {
    const std::string cell = CellOf(row, m_number);
    const int number = ChannelNumberIn(cell).value_or(-1) + 1 - m_base;
    if (number < 1 || number > static_cast<int>(ChannelCount)) {
      Refuse({row.line, m_names[m_number], cell, Refused::Value, {m_base == 0 ? "0 to 15" : "1 to 16"}});
      return std::nullopt;
    }
    if (m_channels.insert(number).second) return static_cast<std::size_t>(number);
    Refuse({row.line, "", std::to_string(number), Refused::ChannelTwice});
    return std::nullopt;
  }

  // False after the last channel.
  bool ReadRow(const CsvRow& row) {
    const std::size_t pasted = m_first.value_or(1) + row.place - m_firstPlace;
    if (m_first && pasted > ChannelCount) {
      Refuse({row.line, "", "", Refused::NoSuchChannel, {}, pasted});
      return false;
    }
    if (!row.isWhole) {
      Refuse({row.line, "", "", Refused::BrokenQuotes, {}, m_first ? pasted : 0});
    } else if (const auto channel = m_first ? pasted : ChannelOf(row); channel && HasColumns(row, *channel)) {
      if (m_isExchanged)
        ReadExchangeLine(m_names, row, *channel, m_texts, m_list);
      else
        m_list.rows.push_back({row.line, *channel, CellsIn(row, *channel)});
    }
    return true;
  }

  // Whether each cell with a text has a column.
  bool HasColumns(const CsvRow& row, std::size_t channel) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      if ((i < m_columns.size() && m_columns[i] != nullptr) || CellOf(row, i).empty()) continue;
      Refuse({row.line, "", CellOf(row, i), Refused::InNoColumn, {}, channel});
      return false;
    }
    return true;
  }

  [[nodiscard]] std::vector<GivenCell> CellsIn(const CsvRow& row, std::size_t channel) const {
    std::vector<GivenCell> cells;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      const std::string cell = CellOf(row, i);
      if (cell.empty() || m_columns[i]->field == nullptr) continue;
      const auto& [caption, field, isOpposite] = *m_columns[i];
      cells.push_back({row.line, caption, cell, {{field, channel}, ValueOfCell(*field, isOpposite, cell, m_texts)}});
    }
    const Field& inUse = FieldOf(Box::InUse);
    const auto given =
        std::span(m_columns).first(std::min(m_columns.size(), m_list.hasHeading ? MostColumns : row.cells.size()));
    const auto isInUse = [&](const ChannelColumn* column) { return column != nullptr && column->field == &inUse; };
    const auto isFrequency = [](const GivenCell& cell) {
      return cell.assignment.at.field->kind == FieldKind::Frequency;
    };
    if (std::ranges::any_of(cells, isFrequency) && std::ranges::none_of(given, isInUse))
      cells.push_back({row.line, "", "", {{&inUse, channel}, "true"}});
    return cells;
  }

  const FieldTexts& m_texts;
  std::optional<std::size_t> m_first;
  std::size_t m_firstPlace = 0;
  bool m_isExchanged = false;
  std::vector<std::string> m_names;
  std::vector<const ChannelColumn*> m_columns; // nullptr below an empty heading
  std::size_t m_number = 0;                    // the column of the channel's number
  int m_base = 1;                              // the number of the first channel
  std::set<int> m_channels;
  ChannelList m_list;
};

} // namespace

std::string ChannelsCsv(const Configuration& configuration) {
  std::string text;
  for (std::size_t channel = 0; channel <= ChannelCount; ++channel) {
    std::vector<std::string> cells = {channel == 0 ? std::string(NumberColumn) : std::to_string(channel)};
    for (const Field& field : Fields())
      if (field.group == FieldGroup::Channels)
        cells.push_back(channel == 0 ? std::string(field.key) : TextOf(configuration, {&field, channel}));
    text += CsvLine(cells);
  }
  return text;
}

ChannelList ReadChannelList(std::string_view bytes, const FieldTexts& texts, std::optional<std::size_t> first) {
  return ListReader(texts, first).Read(bytes);
}

std::vector<GivenCell> CellsOf(const std::vector<ChannelRow>& rows) {
  std::vector<GivenCell> cells;
  for (const ChannelRow& row : rows)
    cells.insert(cells.end(), row.cells.begin(), row.cells.end());
  return cells;
}

} // namespace mr4500x
