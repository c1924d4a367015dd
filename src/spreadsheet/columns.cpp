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

// Also accepts the caption without its unit, the key as words ("rx tone"), and the correct spelling of "Band With".
bool IsMeant(const ChannelColumn& column, const std::string& wanted) {
  if (column.field == nullptr || column.isOpposite) return false;
  std::string words(column.field->key);
  std::ranges::replace(words, '_', ' ');
  const std::string caption = Lower(column.caption);
  return wanted == words || wanted == caption.substr(0, caption.find(" (")) ||
         (wanted == "band width" && column.field->place == FieldPlace(GridColumn::BandWidth));
}

bool IsStepOrWidth(const Field& field) {
  return field.place == FieldPlace(GridColumn::RxStep) || field.place == FieldPlace(GridColumn::TxStep) ||
         field.place == FieldPlace(GridColumn::BandWidth);
}

// Converts the notation of other programs ("88.5", "D023N", "-D754") to a tone of the list. Any other text is
// unchanged.
std::string ToneMeant(const std::string& cell, char separator) {
  std::string text = Lower(cell);
  std::erase(text, ' ');
  const auto drop = [&](std::string_view prefix) {
    const bool isThere = text.starts_with(prefix);
    if (isThere) text.erase(0, prefix.size());
    return isThere;
  };
  if (text == "off" || text == "none") return "OFF";
  bool isInverted = drop("-");
  if (drop("dcs") || drop("d")) {
    const bool isMarkedInverted = text.ends_with('i');
    if (isMarkedInverted || text.ends_with('n')) text.pop_back();
    isInverted = isInverted || isMarkedInverted;
    return text.size() == 3 && ParseWhole(text) ? (isInverted ? "-DCS" : "DCS") + text : cell;
  }
  if (!drop("ctcss")) drop("ctc");
  if (text.ends_with("hz")) text.resize(text.size() - 2);
  const auto hertz = ParseDecimal(text, separator);
  if (isInverted || !hertz || hertz->digits <= 0) return cell;
  const std::int64_t tenths = CountOfUnits(*hertz, 1, 1);
  const bool isExact = CountOfUnits(*hertz, 4, 1) == tenths * 1000;
  return isExact ? "CTC" + FormatDecimal(tenths, 2, 1, separator) : cell;
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
  const auto isMeant = [&](const ChannelColumn& column) { return IsMeant(column, wanted); };
  const auto meant = std::ranges::find_if(columns, isMeant);
  return meant == columns.end() ? nullptr : &*meant;
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
  const char separator = texts.decimalSeparator;
  const auto isDecimalSign = [](char c) { return c == '.' || c == ','; };
  std::ranges::replace_if(value, isDecimalSign, separator);
  if (field.place == FieldPlace(GridColumn::RxTone) || field.place == FieldPlace(GridColumn::TxTone))
    return ToneMeant(value, separator);
  const bool isFrequency = field.kind == FieldKind::Frequency;
  if ((isFrequency || IsStepOrWidth(field)) && Lower(value).ends_with(isFrequency ? "mhz" : "khz"))
    value = Trimmed(value.substr(0, value.size() - 3));
  if (IsStepOrWidth(field) && value.find(separator) != std::string::npos && ParseDecimal(value, separator)) {
    value.resize(value.find_last_not_of('0') + 1);
    if (value.back() == separator) value.pop_back();
  }
  return value;
}

} // namespace mr4500x
