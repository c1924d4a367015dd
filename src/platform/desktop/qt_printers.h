#pragma once

#include "file_system.h"
#include "printer.h"

#include <memory>

class QPrinter;

namespace mr4500x {

// Contacts the printing system on first use, not at program start.
class QtPrinters final : public Printers {
public:
  explicit QtPrinters(FileSystem& files);
  ~QtPrinters() override;

  [[nodiscard]] std::unique_ptr<Printer> CurrentPrinter() override;
  void SetUpPrinter(const std::string& title) override;
  [[nodiscard]] std::string PdfFile() override;
  void SetPdfFile(const std::string& path) override;

private:
  [[nodiscard]] QPrinter& Chosen();

  FileSystem& m_files;
  std::unique_ptr<QPrinter> m_printer;
  bool m_isSetUp = false; // by the user; until then each job uses the current default printer
};

} // namespace mr4500x
