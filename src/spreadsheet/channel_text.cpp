#include "channel_text.h"

#include "columns.h"
#include "csv.h"
#include "decimal.h"
#include "set_field.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

namespace mr4500x {
namespace {

constexpr std::size_t MostLinesShown = 12;

std::vector<std::vector<std::string>> CaptionedTable(const Configuration& configuration, const Channels& channels) {
  std::vector<std::vector<std::string>> table(1);
  for (const ChannelColumn& column : GridColumns())
    table.front().push_back(column.caption);
  for (const std::size_t channel : channels) {
    std::vector<std::string>& cells = table.emplace_back();
    for (const auto& [caption, field, isOpposite] : GridColumns()) {
      cells.push_back(field == nullptr ? "CH" + std::to_string(channel + 1)
                                       : TextOf(configuration, {field, channel + 1}));
      if (isOpposite) cells.back() = cells.back() == "false" ? "yes" : "no";
    }
  }
  return table;
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
  for (const std::vector<std::string>& cells : CaptionedTable(configuration, channels))
    for (const std::string& cell : cells)
      text += cell + (&cell == &cells.back() ? '\n' : '\t');
  return text;
}

std::string CaptionedCsv(const Configuration& configuration) {
  Channels all(ChannelCount);
  std::iota(all.begin(), all.end(), std::size_t{0});
  std::string text;
  for (const std::vector<std::string>& cells : CaptionedTable(configuration, all))
    text += CsvLine(cells);
  return text;
}

Refusals WordsForPasted(const std::vector<RefusedCell>& refused) {
  Refusals lines;
  for (const RefusedCell& one : refused) {
    const std::string column = Shortened(one.column), cell = Shortened(one.cell);
    if (one.channel == 0)
      lines.push_back((column.empty() ? "" : "Column \"" + column + "\": ") + ReasonOf(one));
    else
      lines.push_back("CH" + std::to_string(one.channel) + (column.empty() ? "" : ' ' + column) + ": " + cell +
                      (cell.empty() ? "" : ", ") + ReasonOf(one));
  }
  return lines;
}

ChannelList TakeChannels(Configuration& configuration, std::size_t first, std::string_view text,
                         const FieldTexts& texts) {
  ChannelList list = ReadChannelList(text, texts, first + 1);
  const std::vector<RefusedCell> refused = ApplyCells(configuration, CellsOf(list.rows), texts);
  list.bad.insert(list.bad.end(), refused.begin(), refused.end());
  return list;
}

std::vector<RefusedCell> FillChannels(Configuration& configuration, GridColumn column, const std::string& value,
                                      const Channels& channels, const FieldTexts& texts) {
  std::vector<GivenCell> cells;
  const auto& [caption, field, isOpposite] = GridColumns()[static_cast<std::size_t>(column)];
  for (const std::size_t channel : channels)
    cells.push_back({0, caption, value, {{field, channel + 1}, value}});
  return ApplyCells(configuration, cells, texts);
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
  constexpr std::size_t codeBytes = 8; // per channel
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
