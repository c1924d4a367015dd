#include "report_pages.h"

#include "program_title.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr double FrameLeft = 400;
constexpr double HeaderTop = 200;
constexpr double HeaderRule = 440;
constexpr double TitleToEdge = 1300;   // from the end of the title to the right edge
constexpr double RuleToEdge = 1000;    // from the rules' ends to the right edge
constexpr double FooterRule = 1100;    // from the bottom edge
constexpr double FooterTop = 1060;     // from the bottom edge
constexpr double FooterLeft = 2800;    // from the right edge
constexpr double AboveFooterRule = 20; // kept clear

constexpr double ModelTop = 600;
constexpr PrintFont ModelFont = {10, false};
constexpr PrintFont ModelBold = {10, true};

void AddFrame(ReportPage& page, const ReportTexts& texts, const PageSetting& setting) {
  const std::string title(ProgramTitle);
  const auto [width, height] = setting.area;
  page.texts.push_back({FrameLeft, HeaderTop, FrameFont, "VTR"});
  page.texts.push_back(
      {width - setting.measure.TextWidth(title, FrameFont) - TitleToEdge, HeaderTop, FrameFont, title});
  page.rules.push_back({FrameLeft, HeaderRule, width - RuleToEdge, HeaderRule});
  page.rules.push_back({FrameLeft, height - FooterRule, width - RuleToEdge, height - FooterRule});
  page.texts.push_back({width - FooterLeft, height - FooterTop, FrameFont, texts.printedAt});
}

} // namespace

void AddModelLine(ReportPage& page, const ReportTexts& texts) {
  page.texts.push_back({2200, ModelTop, ModelFont, "Model: "});
  page.texts.push_back({3000, ModelTop, ModelBold, "LR7200 Series"});
  page.texts.push_back({5400, ModelTop, ModelFont, "Frequency Band: "});
  page.texts.push_back({7100, ModelTop, ModelBold, texts.frequencyBand});
}

double BottomOf(const ReportPage& page, const TextMeasure& measure) {
  double bottom = 0;
  for (const PageText& text : page.texts)
    bottom = std::max(bottom, text.y + measure.TextHeight(text.font));
  for (const PageRule& rule : page.rules)
    bottom = std::max(bottom, rule.y2);
  return bottom;
}

double RoomOf(const PrintArea& area) {
  return area.height - FooterRule - AboveFooterRule;
}

ReportPage FramedPage(const ReportTexts& texts, const PageSetting& setting,
                      const std::function<void(ReportPage&, const PageSetting&)>& addReport) {
  ReportPage page;
  addReport(page, setting);
  PrintArea area = setting.area;
  const double surplus = BottomOf(page, setting.measure) - RoomOf(area);
  if (surplus > 0) {
    const double scale = area.height / (area.height + surplus);
    area = {area.width / scale, area.height / scale};
    page = {.texts = {}, .rules = {}, .scale = scale};
    // The wider area can only need fewer lines, so the report still ends above the footer.
    addReport(page, {setting.measure, area});
  }
  AddFrame(page, texts, {setting.measure, area});
  return page;
}

} // namespace mr4500x
