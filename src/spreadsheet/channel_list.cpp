#include "channel_list.h"

#include "decimal.h"
#include "text.h"

#include <algorithm>
#include <set>

namespace mr4500x {
namespace {

constexpr std::string_view NumberColumn = "number";

const Field* ChannelField(std::string_view column) {
  const auto isIt = [&](const Field& field) { return field.group == FieldGroup::Channels && field.key == column; };
  const auto found = std::ranges::find_if(Fields(), isIt);
  return found == Fields().end() ? nullptr : &*found;
}

void DropRepeatedChannels(ChannelList& list) {
  std::set<std::size_t> seen;
  std::erase_if(list.rows, [&](const ImportedRow& row) {
    const bool isNew = seen.insert(row.channel).second;
    if (!isNew) list.bad.push_back({row.line, "", std::to_string(row.channel), "a channel that a line above has"});
    return !isNew;
  });
}

} // namespace

std::vector<std::string> TextsOf(std::vector<BadCell> bad) {
  std::ranges::stable_sort(bad, {}, &BadCell::line);
  std::vector<std::string> texts;
  for (const auto& [line, column, value, why] : bad) {
    std::string& text = texts.emplace_back(std::to_string(line) + ": " + Shortened(column));
    if (!value.empty()) text += (column.empty() ? "" : "=") + Shortened(value);
    text += (column.empty() && value.empty() ? "" : ": ") + why;
  }
  return texts;
}

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

ChannelList ReadChannelList(std::string_view text) {
  CsvTable table = ReadCells(text);
  ChannelList list;
  if (table.rows.empty()) {
    list.bad.push_back({1, "", "", "no heading"});
    return list;
  }
  const std::size_t columns = table.rows.front().cells.size();
  if (columns > MostColumns || table.rows.size() > MostRows) {
    list.bad.push_back(
        {table.rows.front().line, "", "",
         "more than " + std::to_string(MostColumns) + " columns or " + std::to_string(MostRows) + " lines"});
    return list;
  }
  for (CsvRow& row : table.rows) {
    if (!row.isWhole) list.bad.push_back({row.line, "", "", "quotes that do not enclose a whole cell"});
    if (row.isWhole && row.cells.size() > columns) {
      list.bad.push_back({row.line, "", "", "more cells than the heading"});
      row.isWhole = false;
    }
    row.cells.resize(columns);
    for (std::string& cell : row.cells) // a comma that does not separate is a decimal one
      std::ranges::replace(cell, ',', '.');
  }
  if (!table.rows.front().isWhole) return list;
  (IsExchangeList(table.rows.front()) ? ReadExchangeList : ReadOwnForm)(table, list);
  DropRepeatedChannels(list);
  return list;
}

std::string ValueFrom(const Field& field, std::string cell, char decimalSeparator) {
  if (field.kind == FieldKind::YesNo) cell = Lower(cell);
  const bool isStepOrWidth = field.place == FieldPlace(GridColumn::RxStep) ||
                             field.place == FieldPlace(GridColumn::TxStep) ||
                             field.place == FieldPlace(GridColumn::BandWidth);
  if (isStepOrWidth && cell.find(decimalSeparator) != std::string::npos && ParseDecimal(cell, decimalSeparator)) {
    cell.resize(cell.find_last_not_of('0') + 1);
    if (cell.back() == decimalSeparator) cell.pop_back();
  }
  return cell;
}

void AddValue(ImportedRow& row, const Field& field, std::string text, const std::string& column,
              const std::string& cell) {
  ImportedValue& value = row.values.emplace_back();
  value.assignment.at = {&field, row.channel};
  value.assignment.value = std::move(text);
  value.column = column;
  value.cell = cell;
}

void ReadOwnForm(const CsvTable& table, ChannelList& list) {
  const std::vector<std::string>& columns = table.rows.front().cells;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const bool isKnown = columns[i] == NumberColumn || ChannelField(columns[i]) != nullptr;
    const bool isRepeated = std::ranges::count(columns, columns[i]) > 1;
    if (!isKnown || isRepeated)
      list.bad.push_back({table.rows.front().line, columns[i], "", isKnown ? "a column twice" : "no such column"});
  }
  const auto number = static_cast<std::size_t>(std::ranges::find(columns, NumberColumn) - columns.begin());
  if (number == columns.size()) list.bad.push_back({table.rows.front().line, "number", "", "is missing"});
  const auto isInHeading = [&](const BadCell& bad) { return bad.line == table.rows.front().line; };
  list.hasHeading = std::ranges::none_of(list.bad, isInHeading);
  if (!list.hasHeading) return;

  for (const CsvRow& row : std::span(table.rows).subspan(1)) {
    if (!row.isWhole) continue;
    const int channel = ParseWhole(row.cells[number]).value_or(0);
    if (channel < 1 || channel > static_cast<int>(ChannelCount)) {
      list.bad.push_back({row.line, std::string(NumberColumn), row.cells[number], "allowed: 1 to 16"});
      continue;
    }
    ImportedRow imported{row.line, static_cast<std::size_t>(channel), {}};
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Field* const field = ChannelField(columns[i]);
      if (field == nullptr || row.cells[i].empty()) continue;
      AddValue(imported, *field, ValueFrom(*field, row.cells[i]), columns[i], row.cells[i]);
    }
    list.rows.push_back(std::move(imported));
  }
}

std::vector<BadCell> ImportChannels(RadioImage& image, const std::vector<ImportedRow>& rows, const FieldTexts& texts) {
  std::vector<Assignment> assignments;
  for (const ImportedRow& row : rows)
    for (const ImportedValue& value : row.values)
      assignments.push_back(value.assignment);
  std::vector<BadCell> bad;
  for (const RefusedValue& refused : ApplyChanges(image, assignments, texts))
    for (const ImportedRow& row : rows)
      for (const auto& [assignment, column, cell] : row.values) {
        const BadCell found = {row.line, column, cell, "allowed: " + refused.allowed};
        if (assignment.at == refused.at && std::ranges::count(bad, found) == 0) bad.push_back(found);
      }
  return bad;
}

} // namespace mr4500x
