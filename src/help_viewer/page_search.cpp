#include "page_search.h"

#include <QTextDocument>

#include <algorithm>
#include <utility>
#include <vector>

namespace mr4500x {
namespace {

using Rank = std::pair<qsizetype, qsizetype>; // how often the words stand in the title, and in the text

// Nothing worth when a word is missing.
Rank RankOf(const SearchPage& page, const QStringList& words) {
  Rank rank;
  for (const QString& word : words) {
    const qsizetype inTitle = page.title.count(word, Qt::CaseInsensitive);
    const qsizetype inText = page.text.count(word, Qt::CaseInsensitive);
    if (inTitle + inText == 0) return {};
    rank.first += inTitle;
    rank.second += inText;
  }
  return rank;
}

} // namespace

QStringList SearchWords(const QString& question) {
  QStringList words;
  bool isQuoted = false;
  for (const QString& part : question.split(QLatin1Char('"'))) {
    if (isQuoted)
      words.append(part.simplified());
    else
      words.append(part.simplified().split(QLatin1Char(' ')));
    isQuoted = !isQuoted;
  }
  words.removeAll(QString());
  return words;
}

QList<SearchPage> FindPages(const QList<SearchPage>& pages, const QStringList& words) {
  std::vector<std::pair<Rank, const SearchPage*>> ranked;
  for (const SearchPage& page : pages)
    if (const Rank rank = RankOf(page, words); rank != Rank{}) ranked.emplace_back(rank, &page);
  std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
  QList<SearchPage> found;
  for (const auto& [rank, page] : ranked)
    found.append(*page);
  return found;
}

SearchPage PlainPage(const QUrl& url, const QString& html) {
  QTextDocument document;
  document.setHtml(html);
  return {url, document.metaInformation(QTextDocument::DocumentTitle), document.toPlainText().simplified()};
}

} // namespace mr4500x
