// The journal in a file and on paper.
#include "attempt_records.h"
#include "file_access.h"
#include "fleet_setup.h"
#include "frm_fleet.h"
#include "journal_report.h"
#include "shown_text.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <span>

namespace mr4500x {

void FrmFleet::WithJournal(std::function<void(const JournalContent&)> use) {
  const auto work = [plan = m_plan, address = m_journal] { return ReadJournal(address, plan->plan.key); };
  RunInWorker(work, [this, use = std::move(use)](const JournalContent& content) {
    if (content.failure.error.empty())
      use(content);
    else
      ShowFailure(content.failure);
  });
}

void FrmFleet::SaveJournal() {
  SaveJournalAs("*.csv");
}

void FrmFleet::SaveJournalAs(const char* proposed) {
  const QFileInfo plan(Shown(m_setup->Choice().templateFile));
  QFileDialog dialog(this, tr("Save journal"), plan.path(), tr("Tables (*.csv);;Pages (*.pdf)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  const auto use = [&dialog](const QString& filter) { // before it asks whether a file may be replaced
    dialog.setDefaultSuffix(filter.contains(QLatin1String("*.pdf")) ? QStringLiteral("pdf") : QStringLiteral("csv"));
  };
  connect(&dialog, &QFileDialog::filterSelected, &dialog, use);
  dialog.selectNameFilter(dialog.nameFilters().filter(QLatin1String(proposed)).value(0));
  use(dialog.selectedNameFilter());
  dialog.selectFile(plan.completeBaseName() + QStringLiteral("-journal"));
  const bool isAccepted = dialog.exec() == QDialog::Accepted;
  activateWindow(); // after a native dialog, the keyboard may be in no window
  if (!isAccepted) return;
  const QString file = QDir::toNativeSeparators(dialog.selectedFiles().value(0));
  if (IsNeeded(m_setup->Choice(), file.toStdString())) return ShowMessage(tr("%1 can't be written.").arg(file));
  WithJournal([this, file, name = Shown(m_plan->plan.name)](const JournalContent& content) {
    bool isStored = false;
    if (file.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
      QPrinter printer(QPrinter::HighResolution);
      printer.setOutputFileName(file);
      isStored = PrintJournal(printer, name, content);
    } else {
      const std::string text = AttemptsCsv(content.attempts, CsvUse::ForPeople);
      const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
      isStored = ReplaceFile(m_files, file.toStdString(), bytes, Surplus::Drop);
    }
    ShowMessage(isStored ? tr("The journal is in %1.").arg(file) : tr("%1 can't be written.").arg(file));
  });
}

void FrmFleet::PrintOnPaper() {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) return SaveJournalAs("*.pdf");
  const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  printer->setDocName(windowTitle());
  if (QPrintDialog(printer.get(), this).exec() != QDialog::Accepted) return;
  WithJournal([this, printer, name = Shown(m_plan->plan.name)](const JournalContent& content) {
    if (!PrintJournal(*printer, name, content))
      ShowMessage(tr("The printer %1 did not take the job.").arg(printer->printerName()));
  });
}

} // namespace mr4500x
