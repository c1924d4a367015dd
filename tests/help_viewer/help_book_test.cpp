// Opening the help file, in good order and not, and the full-text search.
#include "help_book.h"
#include "page_search.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

namespace mr4500x {
namespace {

TEST(HelpBook, ReadsNothingButTheHelpFile) {
  HelpBook book;
  ASSERT_EQ(book.Open(TEST_BOOK), BookOutcome::Opened);
  EXPECT_EQ(book.Pages().size(), 3);
  const std::pair<const char*, bool> cases[] = {
      {"qthelp://mr4500x/help/index.html", true},
      {"qthelp://mr4500x/help/tones.html#dcs", true},
      {"qthelp://mr4500x/help/pictures/reading.png", true},
      {"qthelp://mr4500x/help/nothing.html", false},
      {"file://" TEST_BOOK, false},
      {"https://www.calvorne-vtr.example/", false},
  };
  for (const auto& [url, isThere] : cases)
    EXPECT_EQ(!book.Content(QUrl(QLatin1String(url))).isEmpty(), isThere) << url;
}

TEST(HelpBook, OpensThroughLinksAndForSeveralViewersAtOnce) {
  const QTemporaryDir folder;
  const QString link = folder.filePath("deep");
  ASSERT_TRUE(QFile::link(QFileInfo(TEST_BOOK).path(), link));
  HelpBook first, second;
  EXPECT_EQ(first.Open(TEST_BOOK), BookOutcome::Opened);
  EXPECT_EQ(second.Open(link + "/book.hlp"), BookOutcome::Opened);
}

TEST(HelpBook, TellsOfAFileThatItCanNotRead) {
  QFile good(TEST_BOOK);
  ASSERT_TRUE(good.open(QIODevice::ReadOnly));
  const QByteArray whole = good.readAll();
  QByteArray scribbled = whole;
  scribbled.replace(4096, scribbled.size() - 4096, QByteArray(scribbled.size() - 4096, '\x5A'));
  const QTemporaryDir folder;
  const struct {
    const char* name;
    std::optional<QByteArray> content;
    BookOutcome outcome;
  } cases[] = {
      {"missing", std::nullopt, BookOutcome::Missing},
      {"empty", QByteArray(), BookOutcome::Damaged},
      {"text", QByteArray("no help at all"), BookOutcome::Damaged},
      {"cut", whole.left(whole.size() / 2), BookOutcome::Damaged},
      {"scribbled", scribbled, BookOutcome::Damaged},
      {"good", whole, BookOutcome::Opened},
  };
  for (const auto& [name, content, outcome] : cases) {
    const QString path = folder.filePath(name);
    QFile file(path);
    if (content) {
      EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(*content) == content->size());
    }
    file.close();
    HelpBook book;
    EXPECT_EQ(book.Open(path), outcome) << name;
    EXPECT_EQ(BookMessage(outcome, path).contains(path), outcome != BookOutcome::Opened) << name;
  }
}

TEST(HelpBook, KeepsItsCatalogueWhereThereIsRoom) {
  const QTemporaryDir folder;
  const QByteArray before[] = {qgetenv("XDG_RUNTIME_DIR"), qgetenv("TMPDIR"), qgetenv("XDG_CACHE_HOME")};
  const struct {
    QByteArray runtime, temporary, cache;
    BookOutcome outcome;
  } cases[] = {
      {"/proc", folder.path().toUtf8(), "/proc", BookOutcome::Opened},
      {"/proc", "/proc", folder.path().toUtf8(), BookOutcome::Opened},
      {"/proc", "/proc", "/proc", BookOutcome::NoRoom},
  };
  for (const auto& [runtime, temporary, cache, outcome] : cases) {
    qputenv("XDG_RUNTIME_DIR", runtime);
    qputenv("TMPDIR", temporary);
    qputenv("XDG_CACHE_HOME", cache);
    HelpBook book;
    EXPECT_EQ(book.Open(TEST_BOOK), outcome);
    EXPECT_EQ(QDir(folder.path()).isEmpty(), outcome != BookOutcome::Opened);
  }
  EXPECT_TRUE(QDir(folder.path()).isEmpty()); // nothing stays behind
  qputenv("XDG_RUNTIME_DIR", before[0]);
  qputenv("TMPDIR", before[1]);
  qputenv("XDG_CACHE_HOME", before[2]);
}

} // namespace
} // namespace mr4500x
