#include "pdf_printer.h"

#include "file_access.h"

#include <QMarginsF>
#include <QPdfWriter>

#include <cstdint>
#include <span>
#include <utility>

namespace mr4500x {
namespace {

constexpr char NoPrinterText[] = "There is no printer. \"Printer...\" offers to print to a PDF file.";
constexpr char NotStartedText[] = "The PDF file %1 can't be started.";
constexpr char NotWrittenText[] = "The PDF file %1 can't be written.";

constexpr int Resolution = 1440; // dots per inch: one per twip
// Mostly unprintable, should the file be printed later, and small enough for sixteen channels in full size.
constexpr double Margin = 2.5; // mm

std::string AboutFile(const char* text, const std::string& path) {
  return QString::fromUtf8(text).arg(QString::fromStdString(path)).toStdString();
}

} // namespace

PdfPrinter::PdfPrinter(FileSystem& files, std::string path) : m_files(files), m_path(std::move(path)) {}

PdfPrinter::~PdfPrinter() {
  AbandonJob();
}

std::optional<std::string> PdfPrinter::BeginJob(const std::string& title) {
  if (m_path.empty()) return NoPrinterText;
  m_pages.open(QIODevice::WriteOnly | QIODevice::Truncate);
  m_writer = std::make_unique<QPdfWriter>(&m_pages);
  m_writer->setResolution(Resolution);
  m_writer->setTitle(QString::fromStdString(title));
  m_writer->setCreator(QString::fromStdString(title));
  SetPaper(*m_writer);
  m_writer->setPageMargins(QMarginsF(Margin, Margin, Margin, Margin), QPageLayout::Millimeter);
  if (BeginOn(*m_writer)) return std::nullopt;
  return AboutFile(NotStartedText, m_path);
}

std::optional<std::string> PdfPrinter::EndJob() {
  const bool hasEnded = ClosePages();
  const QByteArray& bytes = m_pages.data();
  const std::span content(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                          static_cast<std::size_t>(bytes.size()));
  if (hasEnded && ReplaceFile(m_files, m_path, content, Surplus::Drop)) return std::nullopt;
  return AboutFile(NotWrittenText, m_path);
}

void PdfPrinter::AbandonJob() {
  static_cast<void>(ClosePages());
}

bool PdfPrinter::ClosePages() {
  const bool hasEnded = EndPainting();
  m_writer.reset();
  m_pages.close();
  return hasEnded;
}

} // namespace mr4500x
