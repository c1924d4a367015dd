#include "page_printer.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>

namespace mr4500x {
namespace {

constexpr char NoFurtherPageText[] = "The printer does not take a further page.";
constexpr int TwipsPerPoint = 20;
constexpr double TwipsPerInch = 1440;

// Pixel sizes are in the painter's unit, the twip.
QFont FontOf(const PrintFont& font) {
  QFont made(QStringLiteral("Arial"));
  made.setPixelSize(font.points * TwipsPerPoint);
  made.setBold(font.bold);
  made.setUnderline(font.underlined);
  made.setHintingPreference(QFont::PreferNoHinting);
  made.setKerning(false);
  return made;
}

} // namespace

double PagePrinter::TextWidth(std::string_view text, const PrintFont& font) const {
  return QFontMetricsF(FontOf(font)).horizontalAdvance(QString::fromUtf8(text));
}
double PagePrinter::TextHeight(const PrintFont& font) const {
  return QFontMetricsF(FontOf(font)).height();
}

PrintArea PagePrinter::Area() const {
  const QRectF paper = m_device->pageLayout().paintRect(QPageLayout::Point);
  return {paper.width() * TwipsPerPoint, paper.height() * TwipsPerPoint};
}

bool PagePrinter::BeginOn(QPagedPaintDevice& device) {
  m_device = &device;
  return m_painter.begin(&device);
}

bool PagePrinter::EndPainting() {
  return !m_painter.isActive() || m_painter.end();
}

std::optional<std::string> PagePrinter::NewPage() {
  if (m_device->newPage()) return std::nullopt;
  return NoFurtherPageText;
}

void PagePrinter::SetScale(double scale) {
  m_painter.resetTransform();
  m_painter.scale(scale * m_device->logicalDpiX() / TwipsPerInch, scale * m_device->logicalDpiY() / TwipsPerInch);
}

void PagePrinter::PrintText(double x, double y, const PrintFont& font, std::string_view text) {
  const QFont shown = FontOf(font);
  m_painter.setFont(shown);
  m_painter.drawText(QPointF(x, y + QFontMetricsF(shown).ascent()), QString::fromUtf8(text));
}

void PagePrinter::PrintLine(double x1, double y1, double x2, double y2, double thickness) {
  m_painter.setPen(QPen(Qt::black, thickness, Qt::SolidLine, Qt::FlatCap));
  m_painter.drawLine(QLineF(x1, y1, x2, y2));
}

void SetPaper(QPagedPaintDevice& device) {
  device.setPageSize(QPageSize(QPageSize::A4));
  device.setPageOrientation(QPageLayout::Portrait);
}

} // namespace mr4500x
