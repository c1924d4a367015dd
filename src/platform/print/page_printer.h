#pragma once

#include "printer.h"

#include <QFont>
#include <QPainter>

class QPagedPaintDevice;

namespace mr4500x {

// A printer that draws on any of Qt's paged devices, in twips. Text is measured unhinted and without kerning, so widths
// are the same on every device and at every resolution.
class PagePrinter : public Printer {
public:
  [[nodiscard]] double TextWidth(std::string_view text, const PrintFont& font) const override;
  [[nodiscard]] double TextHeight(const PrintFont& font) const override;
  [[nodiscard]] PrintArea Area() const override;
  [[nodiscard]] std::optional<std::string> NewPage() override;
  void SetScale(double scale) override;
  void PrintText(double x, double y, const PrintFont& font, std::string_view text) override;
  void PrintLine(double x1, double y1, double x2, double y2, double thickness) override;

protected:
  // The device must outlive the job.
  [[nodiscard]] bool BeginOn(QPagedPaintDevice& device);
  [[nodiscard]] bool EndPainting();

private:
  QPagedPaintDevice* m_device = nullptr;
  QPainter m_painter;
};

// A4, portrait.
void SetPaper(QPagedPaintDevice& device);

} // namespace mr4500x
