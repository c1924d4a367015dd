// The full-text search. The texts are read from the book at the first question, so that the window opens without them.
#pragma once

#include "page_search.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;

namespace mr4500x {

class HelpBook;

class SearchTab final : public QWidget {
  Q_OBJECT

public:
  explicit SearchTab(const HelpBook& book);

  void Start(); // the question selected, ready to type

signals:
  void Chosen(const QUrl& page, const QString& word);

private:
  void Search();
  void Choose();

  const HelpBook& m_book;
  QList<SearchPage> m_pages;
  QStringList m_words;
  QLineEdit* m_question;
  QLabel* m_summary;
  QListWidget* m_results;
};

} // namespace mr4500x
