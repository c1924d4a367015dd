#include "printer_setup.h"

#include "open_windows.h"

#include <QDir>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

namespace mr4500x {

// The system's own dialog can't print to PDF files, and does not open if there is no printer.
bool AskForPrinter(QPrinter& printer, const QString& title) {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) return QPrintDialog(&printer, OwnerWindow()).exec() != 0;
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QString file = QFileDialog::getSaveFileName(OwnerWindow(), title, folder, QStringLiteral("PDF (*.pdf)"));
  if (file.isEmpty()) return false;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QDir::toNativeSeparators(file));
  return true;
}

} // namespace mr4500x
