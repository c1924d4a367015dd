#pragma once

#include "printer.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

class QPrinter;

namespace mr4500x {

// Contacts the printing system on first use, not at program start.
class QtPrinters final : public Printers {
public:
  // Stores a PDF file. False if it failed.
  using StoreFile = std::function<bool(const std::string& path, std::span<const std::uint8_t> content)>;

  explicit QtPrinters(StoreFile store);
  ~QtPrinters() override;

  [[nodiscard]] std::unique_ptr<Printer> CurrentPrinter() override;
  void SetUpPrinter(const std::string& title) override;
  [[nodiscard]] std::optional<std::string> PdfFile() override;
  void SetPdfFile(const std::string& path) override;

private:
  [[nodiscard]] QPrinter& Chosen();

  StoreFile m_store;
  std::unique_ptr<QPrinter> m_printer;
  bool m_isSetUp = false; // the user has chosen a printer; until then each job uses the current default printer
};

} // namespace mr4500x
