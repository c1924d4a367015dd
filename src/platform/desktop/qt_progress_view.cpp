#include "qt_progress_view.h"

#include "open_windows.h"

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <utility>

namespace mr4500x {

constexpr int LeastCharacters = 48; // width of the bar

QtProgressView::QtProgressView(std::string programTitle) : m_programTitle(std::move(programTitle)) {}

QtProgressView::~QtProgressView() = default;

void QtProgressView::Open(std::string_view title, std::string_view text, int maximum) {
  Close();
  // No close button: a transfer can't be cancelled.
  m_window = std::make_unique<QDialog>(OwnerWindow(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  m_window->setObjectName(QStringLiteral("frmProgress"));
  m_window->setWindowTitle(QString::fromUtf8(title));
  auto* const label = new QLabel(QString::fromUtf8(text.empty() ? std::string_view(m_programTitle) : text));
  label->setObjectName(QStringLiteral("lblText"));
  label->setTextFormat(Qt::PlainText);
  m_bar = new QProgressBar;
  m_bar->setObjectName(QStringLiteral("prgValue"));
  m_bar->setAccessibleName(label->text());
  m_bar->setTextVisible(false);
  m_bar->setRange(0, maximum);
  m_bar->setValue(0);
  m_bar->setMinimumWidth(m_bar->fontMetrics().averageCharWidth() * LeastCharacters);
  auto* const layout = new QVBoxLayout(m_window.get());
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(label);
  layout->addWidget(m_bar);
  m_window->show();
  m_window->repaint();
}

void QtProgressView::SetValue(int value) {
  if (!m_window) return;
  m_bar->setValue(value);
  m_window->repaint();
}

void QtProgressView::Close() {
  if (!m_window) return;
  m_window->hide(); // deleting a visible window closes it first, and the input filter refuses closing
  m_window.reset();
}

} // namespace mr4500x
