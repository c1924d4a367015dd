// The layout of the three reports. print_reports.h draws it.
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

// With the frame. A report that would reach the footer is laid out for a larger area and the whole page scaled down.
[[nodiscard]] ReportPage ChannelReportPage(const ReportTexts& texts, const PageSetting& setting);
[[nodiscard]] ReportPage TtsReportPage(const ReportTexts& texts, const PageSetting& setting);
[[nodiscard]] ReportPage InfoReportPage(const ReportTexts& texts, const PageSetting& setting);

} // namespace mr4500x
