// The manual against the program: it knows every message and command, all its links lead somewhere, and every page can
// be reached.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocument>

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

TEST_F(ManualTest, KnowsEveryMessageOfTheProgram) {
  const QRegularExpression noMessages("^Data file of LR720[01] Radio Series"); // headers of data files
  const QRegularExpression otherPrograms("/(cli|simulator|demo)/");
  int count = 0;
  QDirIterator files(SOURCE_FOLDER "/src", {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString file = files.next();
    if (file.contains(otherPrograms)) continue;
    for (QString sentence : SentencesIn(ReadText(file))) {
      if (sentence.contains(noMessages)) continue;
      ++count;
      for (const QString& part : sentence.remove('&').split(QRegularExpression("%\\d"), Qt::SkipEmptyParts))
        EXPECT_TRUE(words.contains(part.trimmed())) << file.toStdString() << ": " << sentence.toStdString();
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
  const QString project = ReadText(Folder + "MR4500X.qhp");
  for (const QString& address : Captures(project, "ref=\"([^\"]*)\""))
    ExpectThere("MR4500X.qhp", address);
  QStringList keywords = Captures(project, "<keyword ([^>]*)>");
  EXPECT_GT(keywords.size(), 150);
  EXPECT_EQ(keywords.removeDuplicates(), 0);
  QStringList contents = Captures(project, "<section ([^>/]*)");
  for (auto page = pages.cbegin(); page != pages.cend(); ++page) {
    const QString section = QString("title=\"%1\" ref=\"%2\"").arg(PlainPage(page.value()).title, page.key());
    EXPECT_TRUE(contents.removeOne(section)) << section.toStdString();
  }
  EXPECT_TRUE(contents.isEmpty()) << contents.join(", ").toStdString();
}

} // namespace
} // namespace mr4500x
