// The manual against the program: it knows every message and command, all its links lead somewhere, and every page can
// be reached.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTextDocument>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

QString ReadText(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

QStringList Captures(const QString& text, const char* pattern) {
  QStringList found;
  for (auto all = QRegularExpression(QLatin1String(pattern)).globalMatch(text); all.hasNext();)
    found.append(all.next().captured(1));
  return found;
}

const QString Folder = SOURCE_FOLDER "/help/";

// What a reader sees of a page: its title, and its text without markup.
struct Page {
  QString title;
  QString text;
};

Page PlainPage(const QString& html) {
  QTextDocument document;
  document.setHtml(html);
  return {document.metaInformation(QTextDocument::DocumentTitle), document.toPlainText().simplified()};
}

class ManualTest : public testing::Test {
protected:
  ManualTest() {
    for (const QString& name : QDir(Folder).entryList({"*.html"})) {
      pages.insert(name, ReadText(Folder + name));
      words += PlainPage(pages[name]).text + '\n';
    }
    EXPECT_GT(pages.size(), 20);
  }

  // An address in a page, or in the project's lists when the page is the first one.
  void ExpectThere(const QString& from, const QString& address) {
    if (address == "https://www.calvorne-vtr.example/") return;
    const QString file = address.section('#', 0, 0).isEmpty() ? from : address.section('#', 0, 0);
    EXPECT_TRUE(QFile::exists(Folder + file) || QFile::exists(SOURCE_FOLDER "/docs/" + file))
        << from.toStdString() << " names " << address.toStdString();
    if (!address.contains('#')) return;
    const QString target = QString("id=\"%1\"").arg(address.section('#', 1));
    EXPECT_EQ(pages.value(file).count(target), 1) << from.toStdString() << " names " << address.toStdString();
  }

  QMap<QString, QString> pages; // by the name of the file
  QString words;                // of all pages
};

// The sentences among the string literals of a source, as the user reads them.
QStringList SentencesIn(QString source) {
  source.remove(QRegularExpression("(^|\\s)//.*$", QRegularExpression::MultilineOption));
  source.remove(QRegularExpression("\"\\s*\\n\\s*\"")); // a literal that goes on in the next line
  QStringList sentences;
  for (QString literal : Captures(source, "\"((?:[^\"\\\\\\n]|\\\\.)*)\"")) {
    literal.replace("\\n", " ").replace("\\\"", "\"");
    if (literal.contains(' ') && QString(".!?").contains(literal.back())) sentences.append(literal.simplified());
  }
  return sentences;
}

TEST(SentencesIn, SeesThroughCommentsAndLineEnds) {
  EXPECT_EQ(
      SentencesIn(
          "Show(\"Error\", \"It is\"\n  \" gone!\"); // \"No text.\"\nLink(\"https://a.b/\", \"Go \\\"on\\\".\")"),
      (QStringList{"It is gone!", "Go \"on\"."}));
}

TEST_F(ManualTest, KnowsEveryMessageOfTheProgram) {
  const QSet<QString> noMessages = {
      "Data file of LR7200 Radio Series, Calvorne VTR.", // the headers of data files
      "Data file of LR7201 Radio Series, Calvorne VTR.",
  };
  int count = 0;
  for (const char* folder :
       {"app", "editor", "files", "link", "platform/desktop", "platform/print", "platform/printer", "reports"}) {
    QDirIterator files(SOURCE_FOLDER "/src/" + QString(folder), {"*.h", "*.cpp"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
      const QString file = files.next();
      if (file.contains("/app/tour/")) continue;
      for (QString sentence : SentencesIn(ReadText(file))) {
        if (noMessages.contains(sentence)) continue;
        ++count;
        for (const QString& part : sentence.remove('&').split(QRegularExpression("%\\d"), Qt::SkipEmptyParts))
          EXPECT_TRUE(words.contains(part.trimmed())) << file.toStdString() << ": " << sentence.toStdString();
      }
    }
  }
  EXPECT_GT(count, 45);
}

TEST_F(ManualTest, KnowsEveryCommandAndButton) {
  const QString table = ReadText(SOURCE_FOLDER "/src/app/action_table.cpp");
  const QString menus = PlainPage(pages.value("menus.html")).text;
  const QStringList texts = Captures(table, "RowKind::(?:Menu|Item|View),\\s*\"([^\"]*)\"");
  const QStringList keys = Captures(table, "\"(Ctrl\\+\\w|F\\d)\"");
  EXPECT_GT(texts.size(), 20);
  EXPECT_GT(keys.size(), 8);
  for (QString text : texts + keys)
    EXPECT_TRUE(menus.contains(text.remove('&').trimmed())) << text.toStdString();
  for (const char* tip : {"new", "COM Port", "Channel Windows", "Function Windows"})
    EXPECT_TRUE(table.contains(tip) && menus.contains(tip)) << tip;
}

TEST_F(ManualTest, HasNoLinkThatLeadsNowhere) {
  for (auto page = pages.cbegin(); page != pages.cend(); ++page)
    for (const QString& address : Captures(page.value(), "(?:href|src)=\"([^\"]*)\""))
      ExpectThere(page.key(), address);
}

TEST_F(ManualTest, ListsEveryPageAndEveryKeywordOnce) {
  QXmlStreamReader project(ReadText(Folder + "MR4500X.qhp"));
  QMap<QString, QString> listed; // titles
  QSet<QString> keywords;
  while (!project.atEnd()) {
    project.readNext();
    if (!project.isStartElement()) continue;
    const QString address = project.attributes().value("ref").toString();
    if (project.name() == QLatin1String("section")) {
      EXPECT_FALSE(listed.contains(address)) << address.toStdString();
      listed.insert(address, project.attributes().value("title").toString());
    } else if (project.name() == QLatin1String("keyword")) {
      const QString keyword = project.attributes().value("name").toString() + "\n" + address;
      EXPECT_FALSE(keywords.contains(keyword)) << keyword.toStdString();
      keywords.insert(keyword);
      ExpectThere("MR4500X.qhp", address);
    }
  }
  EXPECT_FALSE(project.hasError());
  EXPECT_GT(keywords.size(), 150);
  for (auto page = pages.cbegin(); page != pages.cend(); ++page)
    EXPECT_EQ(listed.take(page.key()), PlainPage(page.value()).title) << page.key().toStdString();
  EXPECT_TRUE(listed.isEmpty());
}

} // namespace
} // namespace mr4500x
