#pragma once

#include "file_system.h"
#include "page_printer.h"

#include <QBuffer>

#include <memory>

class QPdfWriter;

namespace mr4500x {

// Prints to a PDF file, which is written as a whole when the job ends; an abandoned or failed job leaves an old file as
// it was. An empty path means that there is no printer: BeginJob fails.
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
