// A printer whose paper is a PDF file.
#pragma once

#include "file_system.h"
#include "page_printer.h"

#include <QBuffer>

#include <memory>

class QPdfWriter;

namespace mr4500x {

// The file takes the place of an old one when the job ends, whole; before that, and when the job fails or is abandoned,
// nothing of the disk is touched. An empty path stands for a machine without a printer: no job begins.
class PdfPrinter final : public PagePrinter {
public:
  PdfPrinter(FileSystem& files, std::string path);
  ~PdfPrinter() override;

  [[nodiscard]] std::optional<std::string> BeginJob(const std::string& title) override;
  [[nodiscard]] std::optional<std::string> EndJob() override;
  void AbandonJob() override;

private:
  [[nodiscard]] bool ClosePages();

  FileSystem& m_files;
  std::string m_path;
  QBuffer m_pages;
  std::unique_ptr<QPdfWriter> m_writer;
};

} // namespace mr4500x
