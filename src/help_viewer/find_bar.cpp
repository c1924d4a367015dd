#include "find_bar.h"

#include "page_view.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace mr4500x {

FindBar::FindBar(PageView& page) : m_page(page), m_text(new QLineEdit), m_notice(new QLabel) {
  m_text->setObjectName(QStringLiteral("txtFind"));
  m_notice->setObjectName(QStringLiteral("lblNotFound"));
  auto* const label = new QLabel(tr("&Find in page:"));
  label->setBuddy(m_text);
  auto* const next = new QPushButton(tr("&Next"));
  auto* const previous = new QPushButton(tr("&Previous"));
  auto* const layout = new QHBoxLayout(this);
  for (QWidget* const part : std::initializer_list<QWidget*>{label, m_text, next, previous, m_notice})
    layout->addWidget(part);
  layout->addStretch();
  connect(next, &QPushButton::clicked, this, [this] { Find(false); });
  connect(previous, &QPushButton::clicked, this, [this] { Find(true); });
  hide();
}

void FindBar::Start() {
  show();
  m_notice->clear();
  m_text->setFocus();
  m_text->selectAll();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    hide();
    m_page.setFocus();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Find(event->modifiers().testFlag(Qt::ShiftModifier));
  } else {
    QWidget::keyPressEvent(event);
  }
}

void FindBar::Find(bool backwards) {
  const bool isFound = m_text->text().isEmpty() || m_page.FindText(m_text->text(), backwards);
  m_notice->setText(isFound ? QString() : tr("This page does not hold the text."));
}

} // namespace mr4500x
