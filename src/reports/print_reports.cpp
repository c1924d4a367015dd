#include "print_reports.h"

#include "program_title.h"
#include "report_pages.h"

namespace mr4500x {
namespace {

using LayOut = ReportPage (*)(const ReportTexts&, const PageSetting&);

void Draw(Printer& printer, const ReportPage& page) {
  printer.SetScale(page.scale);
  for (const PageRule& rule : page.rules)
    printer.PrintLine(rule.x1, rule.y1, rule.x2, rule.y2, RuleThickness);
  for (const PageText& text : page.texts)
    if (!text.text.empty()) printer.PrintText(text.x, text.y, text.font, text.text);
}

std::optional<std::string> Abandon(Printer& printer, std::optional<std::string> failure) {
  printer.AbandonJob();
  return failure;
}

} // namespace

std::optional<std::string> PrintReports(Printer& printer, const ReportTexts& texts, const ReportChoice& choice) {
  const struct {
    bool wanted;
    LayOut layOut;
  } reports[] = {{choice.channels, ChannelReportPage}, {choice.tts, TtsReportPage}, {choice.info, InfoReportPage}};
  bool hasBegun = false;
  for (const auto& [wanted, layOut] : reports) {
    if (!wanted) continue;
    if (auto failure = hasBegun ? printer.NewPage() : printer.BeginJob(std::string(ProgramTitle)))
      return Abandon(printer, failure);
    hasBegun = true;
    Draw(printer, layOut(texts, {printer, printer.Area()}));
  }
  if (!hasBegun) return std::nullopt;
  if (auto failure = printer.EndJob()) return Abandon(printer, failure);
  return std::nullopt;
}

} // namespace mr4500x
