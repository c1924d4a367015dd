#pragma once

#include "page_printer.h"

#include <QBuffer>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

class QPdfWriter;

namespace mr4500x {

// Prints to a PDF file, which is stored as a whole when the job ends. An abandoned job stores nothing. An empty name
// means that there is no printer: BeginJob fails.
class PdfPrinter final : public PagePrinter {
public:
  using Store = std::function<bool(std::span<const std::uint8_t>)>; // false if it failed

  PdfPrinter(std::string name, Store store); // the name is for messages
  ~PdfPrinter() override;

  [[nodiscard]] std::optional<std::string> BeginJob(const std::string& title) override;
  [[nodiscard]] std::optional<std::string> EndJob() override;
  void AbandonJob() override;

private:
  [[nodiscard]] bool ClosePages();

  std::string m_name;
  Store m_store;
  QBuffer m_pages;
  std::unique_ptr<QPdfWriter> m_writer;
};

} // namespace mr4500x
