#include "given_cells.h"

#include "columns.h"
#include "csv.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::string_view YesOrNo = "yes or no"; // also true or false, which other programs write

std::string KnownHeadings() {
  std::string all;
  for (const ChannelColumn& column : GridColumns())
    all += (all.empty() ? "" : ", ") + column.caption;
  return all;
}

template<typename Target>
std::vector<RefusedCell> Applied(Target& target, const std::vector<GivenCell>& cells, const FieldTexts& texts) {
  std::vector<Assignment> assignments;
  assignments.reserve(cells.size());
  for (const GivenCell& cell : cells)
    assignments.push_back(cell.assignment);
  const std::vector<RefusedValue> values = ApplyChanges(target, std::move(assignments), texts);
  std::vector<RefusedCell> refused;
  for (const auto& [line, column, cell, assignment] : cells) {
    const auto value = std::ranges::find(values, assignment.at, &RefusedValue::at);
    if (value == values.end()) continue;
    const Field& field = *assignment.at.field;
    RefusedCell one = {line, column, cell, Refused::Value, value->refusal, 0};
    if (field.kind == FieldKind::YesNo) one.refusal.allowed = YesOrNo;
    if (field.group == FieldGroup::Channels) one.channel = assignment.at.entry;
    if (std::ranges::find(refused, one) == refused.end()) refused.push_back(std::move(one)); // one cell, two settings
  }
  return refused;
}

} // namespace

std::string ReasonOf(const RefusedCell& refused) {
  // clang-format off
  switch (refused.refused) {
  case Refused::Value:         return ReasonOf(refused.refusal);
  case Refused::NoHeading:     return "no heading";
  case Refused::TooLarge:      return "more than " + std::to_string(MostColumns) + " columns or " +
                                      std::to_string(MostChannelRows) + " lines";
  case Refused::BrokenQuotes:  return "quotes must enclose a whole cell";
  case Refused::UnknownHeading: return "none of these headings is known. Known headings are " + KnownHeadings() +
                                       " and the identifiers of the settings (rx_freq)";
  case Refused::UnknownColumn: return "unknown column";
  case Refused::ColumnTwice:   return "this column occurs twice";
  case Refused::ColumnMissing: return "is missing";
  case Refused::InNoColumn:    return "outside the columns";
  case Refused::ChannelTwice:  return "a line above has the same channel";
  case Refused::NoSuchChannel: return "there are " + std::to_string(ChannelCount) + " channels";
  }
  // clang-format on
  return {};
}

std::vector<std::string> TextsOf(std::vector<RefusedCell> refused) {
  std::ranges::stable_sort(refused, {}, &RefusedCell::line);
  std::vector<std::string> texts;
  for (const RefusedCell& one : refused) {
    const std::string column = Shortened(one.column), cell = Shortened(one.cell);
    const std::string what = column + (column.empty() || cell.empty() ? "" : "=") + cell;
    texts.push_back(std::to_string(one.line) + ": " + what + (what.empty() ? "" : ": ") + ReasonOf(one));
  }
  return texts;
}

std::vector<RefusedCell> ApplyCells(RadioImage& image, const std::vector<GivenCell>& cells, const FieldTexts& texts) {
  return Applied(image, cells, texts);
}

std::vector<RefusedCell> ApplyCells(Configuration& configuration, const std::vector<GivenCell>& cells,
                                    const FieldTexts& texts) {
  return Applied(configuration, cells, texts);
}

} // namespace mr4500x
