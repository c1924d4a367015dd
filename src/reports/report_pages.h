// The layout of the three reports, and their common parts. print_reports.h draws it.
#pragma once

#include "printer.h"
#include "report_texts.h"

#include <functional>
#include <string>
#include <vector>

namespace mr4500x {

struct PageText {
  double x, y; // y: the top of the line
  PrintFont font;
  std::string text;
};

struct PageRule {
  double x1, y1, x2, y2;
};

// In twips before scaling.
struct ReportPage {
  std::vector<PageText> texts;
  std::vector<PageRule> rules;
  double scale = 1;
};

struct PageSetting {
  const TextMeasure& measure;
  PrintArea area;
};

// Complete pages, with the frame. A report that would reach the footer is laid out for a larger area, and the whole
// page is scaled down.
[[nodiscard]] ReportPage ChannelReportPage(const ReportTexts& texts, const PageSetting& setting);
[[nodiscard]] ReportPage TtsReportPage(const ReportTexts& texts, const PageSetting& setting);
[[nodiscard]] ReportPage InfoReportPage(const ReportTexts& texts, const PageSetting& setting);

inline constexpr PrintFont Small = {8, false};
inline constexpr PrintFont SmallBold = {8, true};
inline constexpr PrintFont FrameFont = {9, true};
inline constexpr PrintFont TitleFont = {12, false};

// The first line of reports 1 and 2.
void AddModelLine(ReportPage& page, const ReportTexts& texts);

// The lowest position that a report may reach without being scaled.
[[nodiscard]] double RoomOf(const PrintArea& area);

// The lower edge of all texts and rules.
[[nodiscard]] double BottomOf(const ReportPage& page, const TextMeasure& measure);

// Adds the frame to the page that `addReport` makes, scaled down if it would reach the footer.
[[nodiscard]] ReportPage FramedPage(const ReportTexts& texts, const PageSetting& setting,
                                    const std::function<void(ReportPage&, const PageSetting&)>& addReport);

} // namespace mr4500x
