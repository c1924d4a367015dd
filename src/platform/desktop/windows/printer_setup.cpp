#include "printer_setup.h"

#include "open_windows.h"

#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinterInfo>

namespace mr4500x {

// The system's own dialog does not open if there is no printer.
bool AskForPrinter(QPrinter& printer, const QString& title) {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) return QPrintDialog(&printer, OwnerWindow()).exec() != 0;
  QMessageBox::information(OwnerWindow(), title, QPrintDialog::tr("There is no printer. OK prints to a PDF file."));
  return false;
}

} // namespace mr4500x
