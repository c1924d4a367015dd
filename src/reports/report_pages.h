// The three reports laid out on their pages: what stands where. Drawing it is left to print_reports.h.
#pragma once

#include "printer.h"
#include "report_texts.h"

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

inline constexpr double RuleThickness = 6;

// The places are in twips before the scale is applied.
struct ReportPage {
  std::vector<PageText> texts;
  std::vector<PageRule> rules;
  double scale = 1;
};

// What a report is laid out with.
struct PageSetting {
  const TextMeasure& measure;
  PrintArea area;
};

// Each page has its frame. Where the report would run into the footer, the page as a whole is scaled so that it fits:
// it is laid out for a larger area, which the scale then brings down to the real one.
[[nodiscard]] ReportPage ChannelReportPage(const ReportTexts& texts, const PageSetting& setting);
[[nodiscard]] ReportPage TtsReportPage(const ReportTexts& texts, const PageSetting& setting);
[[nodiscard]] ReportPage InfoReportPage(const ReportTexts& texts, const PageSetting& setting);

} // namespace mr4500x
