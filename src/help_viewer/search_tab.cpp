#include "search_tab.h"

#include "help_book.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace mr4500x {

SearchTab::SearchTab(const HelpBook& book)
    : m_book(book), m_question(new QLineEdit), m_summary(new QLabel), m_results(new QListWidget) {
  m_question->setObjectName(QStringLiteral("txtSearch"));
  m_question->setClearButtonEnabled(true);
  m_question->setToolTip(tr("Pages that hold all the words. Put a phrase in double quotes."));
  m_summary->setObjectName(QStringLiteral("lblSummary"));
  m_results->setObjectName(QStringLiteral("lstResults"));
  m_results->setAccessibleName(tr("Pages found"));
  auto* const label = new QLabel(tr("&Search for:"));
  label->setBuddy(m_question);
  auto* const search = new QPushButton(tr("S&earch"));
  search->setObjectName(QStringLiteral("cmdSearch"));
  auto* const line = new QHBoxLayout;
  line->addWidget(m_question);
  line->addWidget(search);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addLayout(line);
  layout->addWidget(m_summary);
  layout->addWidget(m_results);
  connect(m_question, &QLineEdit::returnPressed, this, &SearchTab::Search);
  connect(search, &QPushButton::clicked, this, &SearchTab::Search);
  connect(m_results, &QListWidget::itemActivated, this, &SearchTab::Choose);
  connect(m_results, &QListWidget::itemClicked, this, &SearchTab::Choose);
}

void SearchTab::Start() {
  m_question->setFocus();
  m_question->selectAll();
}

void SearchTab::Search() {
  if (m_pages.isEmpty())
    for (const QUrl& url : m_book.Pages())
      m_pages.append(PlainPage(url, QString::fromUtf8(m_book.Content(url))));
  m_words = SearchWords(m_question->text());
  m_results->clear();
  for (const SearchPage& page : FindPages(m_pages, m_words)) {
    auto* const result = new QListWidgetItem(page.title, m_results);
    result->setData(Qt::UserRole, page.url);
  }
  m_summary->setText(m_results->count() == 0 ? tr("No page holds that.")
                                             : tr("Pages found: %1").arg(m_results->count()));
  if (m_results->count() == 0) return;
  m_results->setCurrentRow(0);
  m_results->setFocus();
}

void SearchTab::Choose() {
  emit Chosen(m_results->currentItem()->data(Qt::UserRole).toUrl(), m_words.constFirst());
}

} // namespace mr4500x
