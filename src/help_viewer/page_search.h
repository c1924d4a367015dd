// The full-text search: plain texts and words, no windows.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace mr4500x {

struct SearchPage {
  QUrl url;
  QString title;
  QString text;
};

// The words of a question; what stands in double quotes is one of them.
[[nodiscard]] QStringList SearchWords(const QString& question);

// The pages that hold every word, in capitals or not: first those with a word in the title, then those that hold the
// words most often. None without a word.
[[nodiscard]] QList<SearchPage> FindPages(const QList<SearchPage>& pages, const QStringList& words);

// The page without its markup.
[[nodiscard]] SearchPage PlainPage(const QUrl& url, const QString& html);

} // namespace mr4500x
