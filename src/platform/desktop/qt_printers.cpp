#include "qt_printers.h"

#include "page_printer.h"
#include "pdf_printer.h"
#include "printer_setup.h"

#include <QPrinter>

namespace mr4500x {
namespace {

constexpr char PrinterNotStarted[] = "The printer %1 can't be started.";
constexpr char NotTakenText[] = "The printer %1 did not take the job.";

class PaperPrinter final : public PagePrinter {
public:
  explicit PaperPrinter(QPrinter& printer) : m_printer(printer) {}
  ~PaperPrinter() override { static_cast<void>(EndPainting()); }

  std::optional<std::string> BeginJob(const std::string& title) override {
    m_printer.setDocName(QString::fromStdString(title));
    if (BeginOn(m_printer)) return std::nullopt;
    return QString::fromUtf8(PrinterNotStarted).arg(m_printer.printerName()).toStdString();
  }
  std::optional<std::string> EndJob() override {
    if (EndPainting() && m_printer.printerState() != QPrinter::Error) return std::nullopt;
    return QString::fromUtf8(NotTakenText).arg(m_printer.printerName()).toStdString();
  }
  void AbandonJob() override {
    m_printer.abort();
    static_cast<void>(EndPainting());
  }

private:
  QPrinter& m_printer;
};

} // namespace

QtPrinters::QtPrinters(StoreFile store) : m_store(std::move(store)) {}

QtPrinters::~QtPrinters() = default;

QPrinter& QtPrinters::Chosen() {
  if (m_printer == nullptr) {
    m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    SetPaper(*m_printer);
  }
  return *m_printer;
}

std::unique_ptr<Printer> QtPrinters::CurrentPrinter() {
  QPrinter& printer = Chosen();
  if (printer.outputFormat() != QPrinter::PdfFormat) return std::make_unique<PaperPrinter>(printer);
  const std::string path = printer.outputFileName().toStdString();
  return std::make_unique<PdfPrinter>(path, [this, path](auto content) { return m_store(path, content); });
}

void QtPrinters::SetUpPrinter(const std::string& title) {
  QPrinter& printer = Chosen();
  if (AskForPrinter(printer, QString::fromUtf8(title))) m_isSetUp = true;
  SetPaper(printer);
}

// Without a printer, Qt falls back to PDF output. Changes of the system's printers are noticed at each job.
std::optional<std::string> QtPrinters::PdfFile() {
  if (!m_isSetUp) m_printer.reset();
  if (Chosen().outputFormat() != QPrinter::PdfFormat) return std::nullopt;
  return Chosen().outputFileName().toStdString();
}

void QtPrinters::SetPdfFile(const std::string& path) {
  Chosen().setOutputFileName(QString::fromStdString(path));
}

} // namespace mr4500x
