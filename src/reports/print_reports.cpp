#include "print_reports.h"

#include "program_title.h"
#include "report_pages.h"

namespace mr4500x {
namespace {

constexpr double RuleThickness = 6;

void Draw(Printer& printer, const ReportPage& page) {
  printer.SetScale(page.scale);
  for (const PageRule& rule : page.rules)
    printer.PrintLine(rule.x1, rule.y1, rule.x2, rule.y2, RuleThickness);
  for (const PageText& text : page.texts)
    if (!text.text.empty()) printer.PrintText(text.x, text.y, text.font, text.text);
}

} // namespace

std::optional<std::string> PrintReports(Printer& printer, const ReportTexts& texts, const ReportChoice& choice) {
  const struct {
    bool wanted;
    ReportPage (*layOut)(const ReportTexts&, const PageSetting&);
  } reports[] = {{choice.channels, ChannelReportPage}, {choice.tts, TtsReportPage}, {choice.info, InfoReportPage}};
  bool hasBegun = false;
  std::optional<std::string> failure;
  for (const auto& [wanted, layOut] : reports) {
    if (!wanted || failure) continue;
    failure = hasBegun ? printer.NewPage() : printer.BeginJob(std::string(ProgramTitle));
    hasBegun = true;
    if (!failure) Draw(printer, layOut(texts, {printer, printer.Area()}));
  }
  if (hasBegun && !failure) failure = printer.EndJob();
  if (failure) printer.AbandonJob();
  return failure;
}

} // namespace mr4500x
