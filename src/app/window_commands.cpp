// The commands that stay within the window: printing, editing, the embedded information and the help.
#include "commands.h"

#include "backup.h"
#include "dialogs.h"
#include "editor_panel.h"
#include "embedded_info.h"
#include "frm_embed.h"
#include "machine.h"
#include "program_title.h"
#include "setting_help.h"
#include "window_parts.h"
#include "work_keeper.h"

#include <QApplication>
#include <QFileInfo>
#include <QLocale>
#include <QWhatsThis>

#include <algorithm>
#include <utility>

namespace mr4500x {

void CommandContext::SetOrigin(Origin origin) const {
  state.origin = std::move(origin);
  ShowTitle(window, TitleOf(state.origin));
}

Answer CommandContext::Show(const Message& message, MessageButtons buttons) const {
  return services.messages.Show(message.icon, message.title, message.text, buttons);
}

std::string CommandContext::ProposedStem() const {
  if (const auto* const file = std::get_if<FileOrigin>(&state.origin))
    return QFileInfo(QString::fromStdString(file->path)).completeBaseName().toStdString();
  if (state.origin != Origin(RadioOrigin{Transfer::Read})) return "radio";
  RadioImage radio; // a collect has removed the number from the other one
  const std::string number = panel.Shown().identityNumber;
  if (number != NoNumberText)
    std::copy_n(number.begin(), std::min(number.size(), radio.RadioIdBlock.size()), radio.RadioIdBlock.begin());
  return FilledIn("{id}_{date}", radio, services.now());
}

namespace {

std::optional<std::string> AskPdfName(const CommandContext& context, const std::string& proposed) {
  const MainServices& services = context.services;
  std::optional<std::string> path =
      services.dialogs.AskSave({"Print to PDF", "PDF files(*.pdf)|*.pdf", services.folderForFiles, proposed, "pdf"});
  if (path) services.printers.SetPdfFile(*path);
  return path;
}

} // namespace

namespace commands {

void New(const CommandContext& /*context*/) {}

// The editor's content, even before a collect. Only the embedded information comes from the image.
void Print(const CommandContext& context) {
  const MainServices& services = context.services;
  context.panel.CommitOpenEditors();
  std::optional<ReportChoice> choice = ReportChoice();
  std::optional<std::string> pdfFile;
  do { // a cancelled file dialog returns here with the same ticks
    choice = AskReports(*choice, services.printers, services.messages, &context.window);
    if (!choice) return;
    pdfFile = services.printers.PdfFile();
    if (!pdfFile) break;
    pdfFile = AskPdfName(context, pdfFile->empty() ? context.ProposedStem() + ".pdf" : *pdfFile);
  } while (!pdfFile);
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const ReportTexts texts = ReportTextsOf(context.panel.Shown(), EmbeddedText(context.image.EmbeddedInfoBlock),
                                          DateTimeText(QLocale(), services.now()));
  const std::unique_ptr<Printer> printer = services.printers.CurrentPrinter();
  const std::optional<std::string> failure = PrintReports(*printer, texts, *choice);
  QGuiApplication::restoreOverrideCursor();
  if (failure)
    context.Show({MessageIcon::Exclamation, std::string(ProgramTitle), *failure});
  else if (pdfFile)
    context.status.ShowBriefly("Printed to " + QString::fromStdString(*pdfFile));
}

void Copy(const CommandContext& context) {
  context.panel.Copy();
}
void Paste(const CommandContext& context) {
  context.panel.Paste();
}

void EditInfo(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  EmbeddedInfo& block = context.image.EmbeddedInfoBlock;
  const EmbeddedInfo before = block;
  FontDescription& font = context.state.EmbeddedTextFont;
  FrmEmbed dialog({EmbeddedText(block), LastProgrammingTime(context.image), font}, context.services.messages,
                  context.services.fonts, &context.window);
  dialog.exec();
  font = dialog.EmbeddedTextFont();
  if (dialog.CancelPressed()) return;
  // A text over the limit can only be the one that fills the whole block, unedited: the block holds it already.
  static_cast<void>(StoreEmbeddedText(block, dialog.EmbedData()));
  context.keeper.InfoEntered(before);
  context.state.InfoIsPartial = false; // the user has seen the text
}

void HelpContents(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  context.services.help.OpenContents();
}
void HelpIndex(const CommandContext& context) {
  context.panel.CommitOpenEditors();
  context.services.help.OpenIndex();
}
// An open cell stays open: the help is about what is being typed.
void HelpHere(const CommandContext& context) {
  context.services.help.OpenPage(HelpPageOf(QApplication::focusWidget()).toStdString());
}
void WhatsThis(const CommandContext& /*context*/) {
  QWhatsThis::enterWhatsThisMode();
}
void About(const CommandContext& context) {
  ShowAbout(context.services.openLink, &context.window);
}

} // namespace commands
} // namespace mr4500x
