#include "frm_splash.h"

#include "program_title.h"

#include <QEventLoop>
#include <QLinearGradient>
#include <QPainter>
#include <QScreen>
#include <QTimer>

namespace mr4500x {
namespace {

constexpr int PaintLimit = 500; // ms to wait for the first paint event
constexpr QRgb DarkBlue = qRgb(16, 42, 67);
constexpr QRgb Blue = qRgb(36, 89, 138);
constexpr QRgb Signal = qRgb(94, 178, 240);

struct SplashLine {
  const char* text;
  double top;  // in line heights
  double size; // relative to the window's font
  bool strong;
};

constexpr SplashLine Lines[] = {
    {ProgramTitle.data(), 2.2, 1.6, true},
    {"LR7200 Radio Series", 5.2, 1.15, false},
    {"136MHz-520MHz", 7.0, 1.15, false},
    {"2003 Version", 11.0, 1.0, false},
};

// Radio waves from the lower right corner.
void DrawWaves(QPainter& painter, const QRect& area, double line) {
  const QPointF source(area.right() - 2 * line, area.bottom() - 2 * line);
  for (int wave = 1; wave <= 6; ++wave) {
    QColor colour(Signal);
    colour.setAlphaF(0.5F - 0.07F * static_cast<float>(wave));
    painter.setPen(QPen(colour, line * 0.18));
    const double radius = line * 1.5 * wave;
    painter.drawEllipse(source, radius, radius);
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(Signal));
  painter.drawEllipse(source, line * 0.4, line * 0.4);
}

} // namespace

FrmSplash::FrmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setObjectName(QStringLiteral("frmSplash"));
  setWindowTitle(QString::fromLatin1(ProgramTitle.data()));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_QuitOnClose, false); // it may close before the main window shows
  setFixedSize(fontMetrics().height() * 30, fontMetrics().height() * 13);
  move(screen()->availableGeometry().center() - rect().center());
}

void FrmSplash::ShowPainted() {
  QEventLoop loop;
  // Queued, as the window may have been painted before the loop starts.
  connect(this, &FrmSplash::Painted, &loop, &QEventLoop::quit, Qt::QueuedConnection);
  QTimer limit;
  limit.callOnTimeout(&loop, &QEventLoop::quit);
  limit.start(PaintLimit);
  show();
  loop.exec();
}

void FrmSplash::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient background(0, 0, 0, height());
  background.setColorAt(0, QColor(Blue));
  background.setColorAt(1, QColor(DarkBlue));
  painter.fillRect(rect(), background);
  const double line = fontMetrics().height();
  DrawWaves(painter, rect(), line);

  painter.setPen(Qt::white);
  for (const SplashLine& row : Lines) {
    QFont font = this->font();
    font.setPointSizeF(font.pointSizeF() * row.size);
    font.setBold(row.strong);
    painter.setFont(font);
    const QRectF place(2 * line, row.top * line - line, width() - 4 * line, 3 * line);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, QString::fromUtf8(row.text));
  }
  emit Painted();
}

} // namespace mr4500x
