#include "print_command.h"

#include "editor_panel.h"
#include "embedded_info.h"
#include "frm_print.h"
#include "locale_texts.h"
#include "program_title.h"

#include <QGuiApplication>
#include <QLocale>

namespace mr4500x {

void PrintChosenReports(const MainServices& services, EditorPanel& panel, const RadioImage& image, QWidget* window) {
  panel.CommitOpenEditors();
  const std::optional<ReportChoice> choice = AskReports(services.printers, services.messages, window);
  if (!choice) return;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const ReportTexts texts =
      ReportTextsOf(panel.Shown(), EmbeddedText(image.EmbeddedInfoBlock), DateTimeText(QLocale(), services.now()));
  const std::unique_ptr<Printer> printer = services.printers.CurrentPrinter();
  const std::optional<std::string> failure = PrintReports(*printer, texts, *choice);
  QGuiApplication::restoreOverrideCursor();
  if (failure) services.messages.Show(MessageIcon::Exclamation, ProgramTitle, *failure, MessageButtons::Ok);
}

} // namespace mr4500x
