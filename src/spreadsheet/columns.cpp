#include "columns.h"

#include "csv.h"
#include "decimal.h"
#include "differences.h"
#include "text.h"

#include <algorithm>

namespace mr4500x {
namespace {

// Looked up after the captions of the window.
const std::vector<ChannelColumn>& OtherColumns() {
  static const std::vector<ChannelColumn> columns = [] {
    std::vector<ChannelColumn> all = {{"number"}};
    for (const Field& field : Fields()) {
      if (field.group != FieldGroup::Channels) continue;
      all.push_back({std::string(field.key), &field});
      if (field.kind == FieldKind::YesNo) all.push_back({OnOneLine(field.label), &field});
    }
    return all;
  }();
  return columns;
}

bool IsStepOrWidth(const Field& field) {
  return field.place == FieldPlace(GridColumn::RxStep) || field.place == FieldPlace(GridColumn::TxStep) ||
         field.place == FieldPlace(GridColumn::BandWidth);
}

} // namespace

const std::vector<ChannelColumn>& GridColumns() {
  static const std::vector<ChannelColumn> columns = [] {
    std::vector<ChannelColumn> all = {{"CH No."}};
    for (std::size_t i = 1; i < GridColumnCount; ++i) {
      const Field& field = FieldOf(static_cast<GridColumn>(i));
      all.push_back({OnOneLine(field.label), &field});
    }
    all.push_back({"No CH", &FieldOf(Box::InUse), true});
    all.push_back({"No Tx", &FieldOf(Box::TxAllowed), true});
    return all;
  }();
  return columns;
}

const ChannelColumn* FindChannelColumn(std::string_view heading, const Field* last) {
  const std::vector<ChannelColumn>& columns = GridColumns();
  const auto isLast = [&](const ChannelColumn& column) { return last != nullptr && column.field == last; };
  auto from = std::ranges::find_if(columns, isLast);
  if (from != columns.end()) ++from;
  const std::string wanted = Lower(OneLine(heading));
  using Range = std::span<const ChannelColumn>;
  for (const Range range : {Range(from, columns.end()), Range(columns.begin(), from), Range(OtherColumns())})
    for (const ChannelColumn& column : range)
      if (Lower(column.caption) == wanted) return &column;
  return nullptr;
}

std::optional<int> ChannelNumberIn(std::string_view cell) {
  const std::string text = Lower(OneLine(cell));
  return ParseWhole(std::string_view(text).substr(text.starts_with("ch") ? 2 : 0));
}

std::optional<SettingColumn> FindSettingColumn(std::string_view heading, FieldAt last) {
  const std::string wanted = OneLine(heading);
  if (const auto at = FindField(wanted)) return SettingColumn{*at};
  const std::size_t blank = wanted.find(' ');
  const auto channel = static_cast<std::size_t>(ChannelNumberIn(wanted.substr(0, blank)).value_or(0));
  if (blank != std::string::npos && channel >= 1 && channel <= ChannelCount) {
    const ChannelColumn* const column =
        FindChannelColumn(wanted.substr(blank), last.entry == channel ? last.field : nullptr);
    if (column != nullptr && column->field != nullptr)
      return SettingColumn{{column->field, channel}, column->isOpposite};
  }
  for (const Field& field : Fields())
    for (std::size_t entry = 1; field.group != FieldGroup::Channels && entry <= EntriesOf(field.group); ++entry)
      if (Lower(OneLine(NameOf({&field, entry}))) == Lower(wanted)) return SettingColumn{{&field, entry}};
  return std::nullopt;
}

bool NamesSetting(std::string_view heading) {
  return FindChannelColumn(heading) != nullptr || FindSettingColumn(heading);
}

std::string ValueOfCell(const Field& field, bool isOpposite, std::string_view cell, const FieldTexts& texts) {
  std::string value = OneLine(cell);
  if (field.kind == FieldKind::YesNo) {
    const std::string text = Lower(value);
    const bool isYes = text == "yes" || text == "true";
    if (!isYes && text != "no" && text != "false") return value;
    return isYes != isOpposite ? "true" : "false";
  }
  // The items of lists have a point in every locale.
  const char separator = std::holds_alternative<ChoiceList>(field.place) ? '.' : texts.decimalSeparator;
  const auto isDecimalSign = [](char c) { return c == '.' || c == ','; };
  std::ranges::replace_if(value, isDecimalSign, separator);
  if (IsStepOrWidth(field) && value.find(separator) != std::string::npos && ParseDecimal(value, separator)) {
    value.resize(value.find_last_not_of('0') + 1);
    if (value.back() == separator) value.pop_back();
  }
  return value;
}

} // namespace mr4500x
