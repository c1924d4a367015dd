#include "pdf_printer.h"

#include <QMarginsF>
#include <QPdfWriter>

#include <cstdint>
#include <span>
#include <utility>

namespace mr4500x {
namespace {

constexpr char NotStartedText[] = "The PDF file %1 can't be started.";
constexpr char NotWrittenText[] = "The PDF file %1 can't be written.";

constexpr int Resolution = 1440; // dots per inch: one per twip
// Most printers can't print closer to the edge, and a larger margin would leave no room for 16 channels in full size.
constexpr double Margin = 2.5; // mm

std::string AboutFile(const char* text, const std::string& path) {
  return QString::fromUtf8(text).arg(QString::fromStdString(path)).toStdString();
}

} // namespace

PdfPrinter::PdfPrinter(std::string name, Store store) : m_name(std::move(name)), m_store(std::move(store)) {}

PdfPrinter::~PdfPrinter() {
  AbandonJob();
}

std::optional<std::string> PdfPrinter::BeginJob(const std::string& title) {
  m_pages.open(QIODevice::WriteOnly | QIODevice::Truncate);
  m_writer = std::make_unique<QPdfWriter>(&m_pages);
  m_writer->setResolution(Resolution);
  m_writer->setTitle(QString::fromStdString(title));
  m_writer->setCreator(QString::fromStdString(title));
  SetPaper(*m_writer);
  m_writer->setPageMargins(QMarginsF(Margin, Margin, Margin, Margin), QPageLayout::Millimeter);
  if (BeginOn(*m_writer)) return std::nullopt;
  return AboutFile(NotStartedText, m_name);
}

std::optional<std::string> PdfPrinter::EndJob() {
  const bool hasEnded = ClosePages();
  const QByteArray& bytes = m_pages.data();
  const std::span content(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                          static_cast<std::size_t>(bytes.size()));
  if (hasEnded && m_store(content)) return std::nullopt;
  return AboutFile(NotWrittenText, m_name);
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
