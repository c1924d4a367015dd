#include "print_command.h"

#include "embedded_info.h"
#include "file_commands.h"
#include "machine.h"
#include "output.h"
#include "pdf_printer.h"

namespace mr4500x {

ReportChoice ReportsNamed(std::string_view names) {
  const auto has = [&](std::string_view name) { return names.empty() || names.find(name) != std::string_view::npos; };
  return {.channels = has("channels"), .tts = has("tts"), .info = has("info")};
}

ExitStatus RunPrint(FileSystem& files, const std::string& dataFile, const std::string& pdfFile,
                    const ReportChoice& choice, const QLocale& locale, const LocalTime& now, Terminal& terminal) {
  RadioImage image;
  if (!LoadForCommand(files, dataFile, image, terminal)) return ExitStatus::Failed;
  const FieldTexts fieldTexts = BuildFieldTexts(DecimalSeparatorOf(locale));
  const Configuration values = ValuesForCommand(dataFile, fieldTexts, image, terminal);
  FileResult stored;
  const auto store = [&](std::span<const std::uint8_t> content) -> bool {
    stored = StoreOutput(files, pdfFile, content, Surplus::Drop, terminal.out);
    return stored;
  };
  PdfPrinter printer(pdfFile == Stream ? "on standard output" : pdfFile, store);
  const ReportTexts texts = ReportTextsOf(values, EmbeddedText(image.EmbeddedInfoBlock), DateTimeText(locale, now));
  const std::optional<std::string> failure = PrintReports(printer, texts, choice);
  return failure ? Fail(terminal, *failure + (stored ? "" : ReasonOf(stored))) : ExitStatus::Done;
}

} // namespace mr4500x
