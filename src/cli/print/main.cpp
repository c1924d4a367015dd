// mr4500x-cli-print FILE OUT.pdf REPORTS: runs the print command of mr4500x-cli, so that the other commands start
// without the libraries that draw pages. mr4500x-cli has checked the arguments.
#include "embedded_info.h"
#include "file_commands.h"
#include "machine.h"
#include "machine_files.h"
#include "pdf_printer.h"
#include "print_reports.h"

#include <QGuiApplication>
#include <QLocale>

#include <iostream>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace mr4500x {
namespace {

// Keeps Qt's warnings about a missing desktop from scripts.
void DropDiagnostics(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type == QtFatalMsg) std::cerr << text.toStdString() << '\n';
}

// Prints the same pages as the desktop program, with numbers and date in the user's locale. `reports` is
// "channels,tts,info" or some of them in any order. "" means all.
ExitStatus RunPrint(const std::string& dataFile, const std::string& pdfFile, std::string_view reports,
                    Terminal& terminal) {
  FileSystem& files = MachineFiles();
  const QLocale locale;
  const auto has = [&](std::string_view name) {
    return reports.empty() || reports.find(name) != std::string_view::npos;
  };
  RadioImage image;
  if (!LoadForCommand(files, dataFile, image, terminal)) return ExitStatus::Failed;
  const FieldTexts fieldTexts = BuildFieldTexts(DecimalSeparatorOf(locale));
  const Configuration values = ValuesForCommand(dataFile, fieldTexts, image, terminal);
  FileResult stored;
  const auto store = [&](std::span<const std::uint8_t> content) -> bool {
    stored = StoreForCommand(files, pdfFile, content, Surplus::Drop, terminal);
    return stored;
  };
  PdfPrinter printer(pdfFile == Stream ? "on standard output" : pdfFile, store);
  const ReportTexts texts =
      ReportTextsOf(values, EmbeddedText(image.EmbeddedInfoBlock), DateTimeText(locale, LocalNow()));
  const std::optional<std::string> failure =
      PrintReports(printer, texts, {.channels = has("channels"), .tts = has("tts"), .info = has("info")});
  return failure ? Fail(terminal, *failure + (stored ? "" : ReasonOf(stored))) : ExitStatus::Done;
}

} // namespace
} // namespace mr4500x

int main(int argc, char** argv) {
  using namespace mr4500x;
  return RunProgram([&](Terminal& terminal) {
    if (argc != 4) return Refuse(terminal, "This is a part of mr4500x-cli: see mr4500x-cli print --help.");
    qInstallMessageHandler(DropDiagnostics);
    constexpr std::string_view Platform = MR4500X_SCREENLESS_PLATFORM; // empty if the usual one needs no screen
    if (!Platform.empty()) qputenv("QT_QPA_PLATFORM", Platform.data());
    const QGuiApplication application(argc, argv);
    return RunPrint(argv[1], argv[2], argv[3], terminal);
  });
}
