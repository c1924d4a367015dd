// Report 1: the channel table and the global settings below it.
#include "report_pages.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace mr4500x {
namespace {

struct Column {
  double x;
  std::string_view line1, line2;
  GridColumn cell;
  std::string_view whenNoTx = {}; // instead of the cell
};

// "Enalbe" is misspelt on purpose, as in the product.
// clang-format off
constexpr std::array<Column, 13> Columns = {{
  {  480, "CH No.",  "",          GridColumn::ChannelNo},
  { 1160, "Rx Freq", "(MHz)",     GridColumn::RxFreq},
  { 2180, "Rx",      "CTC/DCS",   GridColumn::RxTone},
  { 3130, "Rx",      "SelCall",   GridColumn::RxSelCall},
  { 4000, "Combo_",  "Signaling", GridColumn::Combination},
  { 4880, "Tail",    "Cut",       GridColumn::TailCut},
  { 5440, "Tx Freq", "(MHz)",     GridColumn::TxFreq,      "--------"},
  { 6420, "Tx",      "CTC/DCS",   GridColumn::TxTone,      "----"},
  { 7390, "Tx",      "SelCall",   GridColumn::TxSelCall,   "----"},
  { 8300, "High Tx", "Power",     GridColumn::HighTxPower, "----"},
  { 9020, "PTT ID",  "Enalbe",    GridColumn::PttId},
  { 9700, "Band",    "Width",     GridColumn::BandWidth},
  {10420, "Group",   "Call",      GridColumn::GroupCall},
}};
// clang-format on

constexpr double SectionX = 800;
constexpr double TitleTop = 1200;
constexpr double HeadingTop = 1700;
constexpr double HeadingStep = 200;
constexpr double FirstRow = 2200;
constexpr double RowStep = 380;

constexpr PrintFont SectionFont = {12, false, /*underlined*/ true};
constexpr double BelowTable = 100; // below the last channel line
constexpr double LeftValueX = 2800;
constexpr double RightLabelX = 6400;
constexpr double RightValueX = 8000;
constexpr double LineStep = 350;
constexpr double SectionStep = 490;

void AddHeadings(ReportPage& page) {
  page.texts.push_back({SectionX, TitleTop, TitleFont, "Channel Settings"});
  for (const Column& column : Columns) {
    page.texts.push_back({column.x, HeadingTop, Small, std::string(column.line1)});
    page.texts.push_back({column.x, HeadingTop + HeadingStep, Small, std::string(column.line2)});
  }
}

std::string CellText(const Column& column, std::size_t channel, const ChannelTexts& texts) {
  if (column.cell == GridColumn::ChannelNo) return std::to_string(channel + 1);
  return texts.noTx && !column.whenNoTx.empty() ? std::string(column.whenNoTx) : texts[column.cell];
}

// The line that replaces the unused channels `first` to `last`, counted from 1.
std::string NullText(std::size_t first, std::size_t last) {
  if (first == last) return " CH" + std::to_string(first) + "  is Null";
  return " CH" + std::to_string(first) + "\uFF5ECH" + std::to_string(last) + "  are Null";
}

void AddChannels(ReportPage& page, const ReportTexts& texts) {
  double y = FirstRow;
  for (std::size_t channel = 0; channel < ChannelCount; ++channel, y += RowStep) {
    if (texts.channels[channel].noCh) {
      const std::size_t first = channel;
      while (channel + 1 < ChannelCount && texts.channels[channel + 1].noCh)
        ++channel;
      page.texts.push_back({Columns.front().x, y, SmallBold, NullText(first + 1, channel + 1)});
      continue;
    }
    for (const Column& column : Columns)
      page.texts.push_back({column.x, y, SmallBold, CellText(column, channel, texts.channels[channel])});
  }
}

void AddItem(ReportPage& page, const SettingText& item, double labelX, double valueX, double y) {
  page.texts.push_back({labelX, y, Small, item.label});
  page.texts.push_back({valueX, y, SmallBold, item.value});
}

// Below the text of the last channel line. Higher if the page has no room, but below the upper edge of that line.
void AddSettings(ReportPage& page, const ReportTexts& texts, const PageSetting& setting) {
  const std::size_t first = page.texts.size();
  const double lineHeight = setting.measure.TextHeight(SmallBold);
  double y = page.texts.back().y + lineHeight + BelowTable;
  for (const SettingsSection& section : texts.settings) {
    page.texts.push_back({SectionX, y, SectionFont, section.title});
    y += LineStep;
    for (const SettingsLine& line : section.lines) {
      AddItem(page, line.left, SectionX, LeftValueX, y);
      AddItem(page, line.right, RightLabelX, RightValueX, y);
      y += &line == &section.lines.back() ? SectionStep : LineStep;
    }
  }
  const double up = std::clamp(BottomOf(page, setting.measure) - RoomOf(setting.area), 0.0, lineHeight);
  for (PageText& text : std::span(page.texts).subspan(first))
    text.y -= up;
}

} // namespace

ReportPage ChannelReportPage(const ReportTexts& texts, const PageSetting& setting) {
  return FramedPage(texts, setting, [&](ReportPage& page, const PageSetting& onSetting) {
    AddModelLine(page, texts);
    AddHeadings(page);
    AddChannels(page, texts);
    AddSettings(page, texts, onSetting);
  });
}

} // namespace mr4500x
