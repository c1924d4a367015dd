#include "printer_setup.h"

#include "open_windows.h"

#include <QDialogButtonBox>
#include <QPrintDialog>
#include <QPushButton>

namespace mr4500x {

bool AskForPrinter(QPrinter& printer, const QString& title) {
  QPrintDialog dialog(&printer, OwnerWindow());
  dialog.setWindowTitle(title);
  dialog.setOptions(QAbstractPrintDialog::PrintToFile);
  const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
  if (QPushButton* const ok = buttons->button(QDialogButtonBox::Ok)) ok->setText(QPrintDialog::tr("OK")); // not "Print"
  return dialog.exec() == QDialog::Accepted;
}

} // namespace mr4500x
