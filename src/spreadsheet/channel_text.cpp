#include "channel_text.h"

#include "channel_list.h"
#include "decimal.h"
#include "differences.h"
#include "set_field.h"
#include "text.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace mr4500x {
namespace {

constexpr std::size_t MostLinesShown = 12;

struct Column {
  std::string caption;
  const Field* field = nullptr; // "CH No." is no setting
  bool isOpposite = false;      // "No CH" says yes when "In Use" says no
};

// From left to right.
const std::vector<Column>& Columns() {
  static const std::vector<Column> columns = [] {
    std::vector<Column> all = {{"CH No."}};
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

// By the caption in the window, the label or the identifier of a setting. Looks on from the column that was found last.
const Column* FindColumn(const std::string& heading, const Column* last) {
  static const std::vector<Column> others = [] {
    std::vector<Column> all = {{"number"}};
    for (const Field& field : Fields()) {
      if (field.group != FieldGroup::Channels) continue;
      all.push_back({std::string(field.key), &field});
      if (field.kind == FieldKind::YesNo) all.push_back({OnOneLine(field.label), &field});
    }
    return all;
  }();
  const std::vector<Column>& columns = Columns();
  const auto isLast = [&](const Column& column) { return last != nullptr && column.field == last->field; };
  auto from = std::ranges::find_if(columns, isLast);
  if (from != columns.end()) ++from;
  const std::string wanted = Lower(heading);
  using Range = std::span<const Column>;
  for (const Range range : {Range(from, columns.end()), Range(columns.begin(), from), Range(others)})
    for (const Column& column : range)
      if (Lower(column.caption) == wanted) return &column;
  return nullptr;
}

bool IsChannelNumber(const std::string& cell) {
  return Lower(cell).starts_with("ch") && ParseWhole(cell.substr(2));
}

// With a tab or a semicolon anywhere, commas are decimal ones. Else they separate, unless the first line is a single
// caption or, where numbers have commas, a single number.
char SeparatorOf(std::string_view text, char decimalSeparator) {
  for (const char separator : {'\t', ';'})
    if (text.find(separator) != std::string_view::npos) return separator;
  const std::vector<CsvRow> lines = ReadCells(text, ';').rows;
  const std::string first = lines.empty() ? "" : lines.front().cells.front();
  const bool isNumber = decimalSeparator == ',' && ParseDecimal(first, decimalSeparator);
  return isNumber || FindColumn(first, nullptr) != nullptr ? ';' : ',';
}

struct Sheet {
  std::vector<const Column*> columns; // nullptr: has no heading
  std::vector<CsvRow> rows;
  std::size_t firstPlace = 0; // of the rows
};

Sheet SheetOf(std::string_view text, char decimalSeparator, Refusals& refusals) {
  Sheet sheet = {{}, ReadCells(text, SeparatorOf(text, decimalSeparator)).rows};
  if (sheet.rows.empty()) return sheet;
  const std::vector<std::string>& heading = sheet.rows.front().cells;
  if (heading.size() > MostColumns) {
    refusals.push_back("more than " + std::to_string(MostColumns) + " columns");
    return {};
  }
  const Column* last = nullptr;
  for (const std::string& caption : heading) {
    sheet.columns.push_back(FindColumn(caption, last));
    if (sheet.columns.back() != nullptr) last = sheet.columns.back();
  }
  if (last != nullptr) {
    std::set<const Field*> seen;
    for (std::size_t i = 0; i < heading.size(); ++i) {
      const Column*& column = sheet.columns[i];
      const bool isUsable = column != nullptr && seen.insert(column->field).second;
      if (isUsable || heading[i].empty()) continue;
      refusals.push_back("Column \"" + Shortened(heading[i]) +
                         "\": " + (column == nullptr ? "unknown" : "there twice"));
      column = &Columns().front(); // its cells need not be told too
    }
    sheet.firstPlace = sheet.rows.front().place + 1;
    sheet.rows.erase(sheet.rows.begin());
  } else {
    sheet.columns.clear();
    const bool isNumbered = IsChannelNumber(heading.front());
    for (const Column& column : Columns())
      if (isNumbered || column.field != nullptr) sheet.columns.push_back(&column);
  }
  return sheet;
}

struct Given {
  FieldAt at;
  const Column* column;
  std::string cell, value;
};

std::string ValueFrom(const Column& column, std::string cell, char decimalSeparator) {
  if (column.field->kind != FieldKind::YesNo) {
    const auto isDecimal = [](char c) { return c == '.' || c == ','; };
    std::ranges::replace_if(cell, isDecimal, decimalSeparator);
    return ValueFrom(*column.field, cell, decimalSeparator);
  }
  const std::string text = Lower(cell);
  const bool yes = text == "yes" || text == "true";
  if (!yes && text != "no" && text != "false") return cell;
  return yes != column.isOpposite ? "true" : "false";
}

// Twice, as a value may need another one first: a frequency its step, Tail Cut a tone.
Refusals SetAll(Configuration& configuration, const std::vector<Given>& values, const FieldTexts& texts) {
  Refusals refusals;
  for (int round = 0; round < 2; ++round) {
    refusals.clear();
    for (const Given& given : values)
      if (const auto refusal = SetField(configuration, given.at, given.value, texts))
        refusals.push_back("CH" + std::to_string(given.at.entry) + ' ' + given.column->caption + ": " +
                           Shortened(given.cell) +
                           ", allowed: " + (given.at.field->kind == FieldKind::YesNo ? "yes or no" : refusal->allowed));
  }
  return refusals;
}

} // namespace

std::string MessageOf(const Refusals& refusals, std::string text) {
  text += '\n';
  for (std::size_t i = 0; i < std::min(refusals.size(), MostLinesShown); ++i)
    text += '\n' + refusals[i];
  if (refusals.size() > MostLinesShown) text += "\nand " + std::to_string(refusals.size() - MostLinesShown) + " more";
  return text;
}

std::string TextOfChannels(const Configuration& configuration, const Channels& channels) {
  std::string text;
  const auto addLine = [&](const auto& cellOf) {
    for (const Column& column : Columns())
      text += cellOf(column) + (&column == &Columns().back() ? '\n' : '\t');
  };
  addLine([](const Column& column) { return column.caption; });
  for (const std::size_t channel : channels)
    addLine([&](const Column& column) {
      if (column.field == nullptr) return "CH" + std::to_string(channel + 1);
      const std::string value = TextOf(configuration, {column.field, channel + 1});
      return !column.isOpposite ? value : value == "false" ? "yes" : "no";
    });
  return text;
}

Refusals TakeChannels(Configuration& configuration, std::size_t first, std::string_view text, const FieldTexts& texts) {
  Refusals refusals;
  const Sheet sheet = SheetOf(text, texts.decimalSeparator, refusals);
  std::vector<Given> values;
  for (const CsvRow& row : sheet.rows) {
    const std::size_t channel = first + row.place - sheet.firstPlace + 1;
    const std::string name = "CH" + std::to_string(channel);
    if (channel > ChannelCount) {
      refusals.push_back(name + ": there are 16 channels");
      break;
    }
    if (!row.isWhole) refusals.push_back(name + ": quotes that do not enclose a whole cell");
    for (std::size_t j = 0; j < row.cells.size(); ++j) {
      const std::string& cell = row.cells[j];
      if (cell.empty()) continue;
      const Column* const column = j < sheet.columns.size() ? sheet.columns[j] : nullptr;
      if (column == nullptr)
        refusals.push_back(name + ": " + Shortened(cell) + ", in no column");
      else if (column->field != nullptr)
        values.push_back({{column->field, channel}, column, cell, ValueFrom(*column, cell, texts.decimalSeparator)});
    }
  }
  std::ranges::copy(SetAll(configuration, values, texts), std::back_inserter(refusals));
  return refusals;
}

Refusals FillChannels(Configuration& configuration, GridColumn column, const std::string& value,
                      const Channels& channels, const FieldTexts& texts) {
  std::vector<Given> values;
  for (const std::size_t channel : channels)
    values.push_back({{&FieldOf(column), channel + 1}, &Columns()[static_cast<std::size_t>(column)], value, value});
  return SetAll(configuration, values, texts);
}

void ClearChannels(Configuration& configuration, const Channels& channels, const FieldTexts& texts) {
  RadioImage image;
  const int lowerLimit = ParseWhole(configuration.lowerBandLimit).value_or(0);
  const ChannelTexts unused = RestartChannels(image, lowerLimit, texts).back();
  for (const std::size_t channel : channels)
    configuration.channels[channel] = unused;
}

bool MoveChannels(Configuration& configuration, RadioImage& image, Channels& channels, int by) {
  const bool up = by < 0;
  if (channels.empty() || (up ? channels.front() == 0 : channels.back() == ChannelCount - 1)) return false;
  constexpr std::size_t codeBytes = 8; // of a channel
  const auto codeOf = [&](std::size_t channel) {
    return std::span(image.SelCallCodeBlock.bytes).subspan(channel * codeBytes, codeBytes);
  };
  if (!up) std::ranges::reverse(channels); // the last one makes room first
  for (std::size_t& channel : channels) {
    const std::size_t other = up ? channel - 1 : channel + 1;
    std::swap(configuration.channels[channel], configuration.channels[other]);
    std::ranges::swap_ranges(image.ChannelBlock.Row(channel), image.ChannelBlock.Row(other));
    std::ranges::swap_ranges(codeOf(channel), codeOf(other));
    channel = other;
  }
  if (!up) std::ranges::reverse(channels);
  return true;
}

} // namespace mr4500x
