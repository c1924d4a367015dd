#include "printer_setup.h"

#include "open_windows.h"

#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinterInfo>

namespace mr4500x {

// The system's own dialog does not open if there is no printer.
bool AskForPrinter(QPrinter& printer, const QString& title) {
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    QMessageBox::information(OwnerWindow(), title, QPrintDialog::tr("There is no printer. OK prints to a PDF file."));
    return false;
  }
  QPrintDialog dialog(&printer, OwnerWindow());
  dialog.setOptions({}); // no range of pages
  return dialog.exec() == QDialog::Accepted;
}

} // namespace mr4500x
