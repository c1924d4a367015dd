#include "journal_report.h"

#include "shown_text.h"
#include "words.h"

#include <QPrinter>
#include <QTextDocument>

#include <map>

namespace mr4500x {
namespace {

QString Cells(const char* tag, std::initializer_list<std::string_view> texts) {
  QString row;
  for (const std::string_view text : texts)
    row += QStringLiteral("<%1>%2</%1>").arg(QLatin1String(tag), Shown(text).toHtmlEscaped());
  return QStringLiteral("<tr>") + row + QStringLiteral("</tr>");
}

QString HtmlOf(const QString& planName, const std::vector<Attempt>& attempts) {
  std::map<AttemptOutcome, int> counts;
  QString rows;
  for (const Attempt& attempt : attempts) {
    ++counts[attempt.outcome];
    const std::string row = attempt.row == 0 ? "" : std::to_string(attempt.row);
    const std::string who = attempt.idNumber + "\n" + attempt.firmware + " " + attempt.band;
    rows += Cells("td", {attempt.start, row, attempt.label, who, attempt.bench + " " + attempt.port,
                         WordFor(attempt.outcome), attempt.text, attempt.backup, attempt.sha256.substr(0, 16)});
  }
  QStringList sums;
  for (const auto& [outcome, count] : counts)
    sums.append(QStringLiteral("%1 %2").arg(count).arg(Shown(WordFor(outcome))));
  return QStringLiteral("<h2>%1</h2><p>%2</p><table border='1' cellspacing='0' cellpadding='3' width='100%'><thead>%3"
                        "</thead>%4</table>")
      .arg(planName.toHtmlEscaped(), sums.join(QStringLiteral(", ")),
           Cells("th", {"Start", "Row", "Label", "Radio", "Port", "Outcome", "What happened", "Backup", "SHA-256"}),
           rows);
}

} // namespace

bool PrintJournal(QPrinter& printer, const QString& planName, const std::vector<Attempt>& attempts) {
  printer.setPageOrientation(QPageLayout::Landscape);
  QTextDocument document;
  document.setDefaultFont(QFont(QStringLiteral("Liberation Sans"), 8));
  document.setHtml(HtmlOf(planName, attempts));
  document.setPageSize(printer.pageRect(QPrinter::Point).size());
  document.print(&printer);
  return printer.printerState() != QPrinter::Error;
}

} // namespace mr4500x
