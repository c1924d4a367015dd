#include "journal_report.h"

#include "attempt_records.h"
#include "conventions.h"
#include "journal_queries.h"
#include "shown_text.h"
#include "words.h"

#include <QAbstractTextDocumentLayout>
#include <QDateTime>
#include <QLocale>
#include <QPainter>
#include <QPrinter>
#include <QTextDocument>

#include <map>
#include <set>
#include <string>

namespace mr4500x {
namespace {

QString Cells(const char* tag, std::initializer_list<std::string_view> texts) {
  QString row;
  for (const std::string_view text : texts)
    row += QStringLiteral("<%1>%2</%1>").arg(QLatin1String(tag), Shown(text).toHtmlEscaped());
  return QStringLiteral("<tr>") + row + QStringLiteral("</tr>");
}

// "Taxi 7 (row 7)"
QString NotDone(const std::vector<JournalRow>& rows) {
  QStringList names;
  for (const JournalRow& row : rows) {
    if (row.state == RowState::Done) continue;
    const QString number = QObject::tr("row %1").arg(row.row);
    names.append(row.label.empty() ? number : QStringLiteral("%1 (%2)").arg(Shown(row.label), number));
  }
  return names.join(QStringLiteral(", "));
}

QString HtmlOf(const QString& planName, const JournalContent& content) {
  std::map<AttemptOutcome, int> counts;
  std::set<std::string> plans;
  for (const Attempt& attempt : content.attempts)
    plans.insert(attempt.plan);
  QString lines;
  for (const Attempt& attempt : content.attempts) {
    ++counts[attempt.outcome];
    const std::string plan = plans.size() > 1 ? " of plan " + attempt.plan.substr(0, 8) : "";
    const std::string row = attempt.row == 0 ? "" : std::to_string(attempt.row) + plan;
    const std::string start = LocalTimestamp(attempt.start), end = LocalTimestamp(attempt.end);
    // "2026-11-25 13:45:07 to 13:45:58 +01:00"
    const std::string time = end.size() < 19 ? start : start.substr(0, 19) + " to " + end.substr(11);
    const std::string who = attempt.idNumber + " " + attempt.firmware + " " + attempt.band;
    const std::string backup = attempt.backup.substr(attempt.backup.find_last_of(Separators) + 1);
    lines +=
        Cells("td", {time, row, attempt.label, who, attempt.bench + " " + attempt.port + " " + attempt.operatorName,
                     WordFor(attempt.outcome), attempt.text, backup, attempt.sha256.substr(0, 16)});
  }
  QStringList sums;
  for (const auto& [outcome, count] : counts)
    sums.append(QStringLiteral("%1 %2").arg(count).arg(Shown(WordFor(outcome))));
  const QString notDone = NotDone(content.rows);
  QString open;
  for (const auto& found :
       {LinesForOpen(content.attempts), LinesForOutdated(content.outdated, content.outdated.size())})
    for (const std::string& line : found)
      open += Shown(line).toHtmlEscaped() + QStringLiteral("<br>");
  return QStringLiteral(
             "<h2>%1</h2><p>%2<br>%3</p><p><b>%4</b></p><table border='1' cellspacing='0' cellpadding='3' width='100%'>"
             "<thead>%5</thead>%6</table>")
      .arg(QObject::tr("Journal of %1").arg(planName).toHtmlEscaped(), sums.join(QStringLiteral(", ")),
           (notDone.isEmpty() ? QObject::tr("All rows are done") : QObject::tr("Not done: %1").arg(notDone))
               .toHtmlEscaped(),
           open,
           Cells("th",
                 {"Time", "Row", "Label", "Radio", "Port, operator", "Outcome", "What happened", "Backup", "SHA-256"}),
           lines);
}

} // namespace

bool PrintJournal(QPrinter& printer, const QString& planName, const JournalContent& content) {
  printer.setPageOrientation(QPageLayout::Landscape);
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const QFont font(QStringLiteral("Liberation Sans"), 8);
  QTextDocument document;
  document.setDefaultFont(font);
  document.documentLayout()->setPaintDevice(&printer);
  document.setHtml(HtmlOf(planName, content));
  painter.setFont(font);
  const QSizeF paper = printer.pageRect(QPrinter::DevicePixel).size();
  const QSizeF page(paper.width(), paper.height() - 2.0 * painter.fontMetrics().height());
  document.setPageSize(page);
  const QString printed = QLocale::c().toString(QDateTime::currentDateTime(), QStringLiteral("yyyy-MM-dd HH:mm"));
  for (int i = 0; i < document.pageCount(); ++i) {
    if (i > 0 && !printer.newPage()) return false;
    const QRectF shown(QPointF(0, i * page.height()), page);
    painter.translate(0, -shown.top());
    document.drawContents(&painter, shown);
    painter.resetTransform();
    painter.drawText(QRectF(QPointF(), paper), Qt::AlignRight | Qt::AlignBottom,
                     QObject::tr("%1, page %2 of %3").arg(printed).arg(i + 1).arg(document.pageCount()));
  }
  return painter.end();
}

} // namespace mr4500x
