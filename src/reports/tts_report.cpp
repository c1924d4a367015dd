// Report 2: the selective-call mode, the auto reset time and, in both modes, the TTS table.
#include "report_pages.h"

#include <array>

namespace mr4500x {
namespace {

constexpr double LabelX = 800;
constexpr double ValueX = 2400;
constexpr double TtsTitleTop = 1100;
constexpr double SelCallTop = 1700;
constexpr double ResetTimeTop = 2300;

constexpr double TableTop = 2700;
constexpr double HeadingBand = 600;
constexpr double RowHeight = 400;
constexpr double TextInRow = 140;
constexpr double TextInColumn = 240;                                          // right of the column's left edge
constexpr double NumberHeading = 220, HeadingLine1 = 120, HeadingLine2 = 330; // below the table's top
constexpr double RowsBottom = TableTop + HeadingBand + RowHeight * TtsEntryCount;

constexpr std::array<double, 8> VerticalRules = {1000, 1600, 2800, 4000, 5200, 6400, 7600, 8800};

constexpr std::array<std::array<const char*, 2>, TtsColumnCount - 1> Headings = {{
    {"Tone A", "Freq(Hz)"},
    {"Tone A", "Dur.(s)"},
    {"Tone B", "Freq(Hz)"},
    {"Tone B", "Dur.(s)"},
    {"Gap", "Time(s)"},
    {"Group Call", "Dur.(s)"},
}};

double DataColumnX(std::size_t column) {
  return VerticalRules[column + 1] + TextInColumn;
}

void AddRules(ReportPage& page) {
  for (const double x : VerticalRules)
    page.rules.push_back({x, TableTop, x, RowsBottom});
  page.rules.push_back({VerticalRules.front(), TableTop, VerticalRules.back(), TableTop});
  for (std::size_t row = 0; row <= TtsEntryCount; ++row) {
    const double y = TableTop + HeadingBand + RowHeight * static_cast<double>(row);
    page.rules.push_back({VerticalRules.front(), y, VerticalRules.back(), y});
  }
}

void AddTable(ReportPage& page, const TtsTexts& tts) {
  const double numberX = VerticalRules.front() + TextInColumn;
  AddRules(page);
  page.texts.push_back({numberX, TableTop + NumberHeading, Small, "No."});
  for (std::size_t column = 0; column < Headings.size(); ++column) {
    page.texts.push_back({DataColumnX(column), TableTop + HeadingLine1, Small, Headings[column][0]});
    page.texts.push_back({DataColumnX(column), TableTop + HeadingLine2, Small, Headings[column][1]});
  }
  double y = TableTop + HeadingBand + TextInRow;
  for (std::size_t entry = 0; entry < tts.size(); ++entry, y += RowHeight) {
    page.texts.push_back({numberX, y, SmallBold, std::to_string(entry + 1)});
    for (std::size_t column = 0; column < Headings.size(); ++column)
      page.texts.push_back({DataColumnX(column), y, SmallBold, tts[entry][column]});
  }
}

} // namespace

ReportPage TtsReportPage(const ReportTexts& texts, const PageSetting& setting) {
  return FramedPage(texts, setting, [&](ReportPage& page, const PageSetting&) {
    AddModelLine(page, texts);
    page.texts.push_back({LabelX, TtsTitleTop, TitleFont, "TTS"});
    page.texts.push_back({LabelX, SelCallTop, Small, "SelCall: "});
    page.texts.push_back({ValueX, SelCallTop, SmallBold, texts.selCall});
    page.texts.push_back({LabelX, ResetTimeTop, Small, "Auto Reset Time: "});
    page.texts.push_back({ValueX, ResetTimeTop, SmallBold, texts.autoResetTime});
    AddTable(page, texts.tts);
  });
}

} // namespace mr4500x
