// Checks the manual against the program: it has every message and every command of the command line tool, and no
// message that the program does not have. All its links work, and every page can be reached.
#include "source_texts.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextDocument>

namespace mr4500x {
namespace {

const QString Folder = SOURCE_FOLDER "/help/", Docs = SOURCE_FOLDER "/docs/";

// The visible part of a page: its title and its text, without markup.
std::pair<QString, QString> PlainPage(const QString& html) {
  QTextDocument document;
  document.setHtml(html);
  return {document.metaInformation(QTextDocument::DocumentTitle), document.toPlainText().simplified()};
}

// A text of the program. What it fills in (%1, or a value between two literals) can be anything.
struct ProgramText {
  QString file, text;
  QString pattern;                 // matches the text with its values
  bool isOpenAtStart, isOpenAtEnd; // a value or another text precedes or follows
};

std::vector<ProgramText> ProgramTexts() {
  const QRegularExpression otherPrograms("/(cli|simulator|demo)/"), comments("(^|\\s)//[^\\n]*");
  const QRegularExpression goesOn("\"\\s*\\n\\s*\"");
  // "a" + value + "b", where a value may have parentheses
  const QRegularExpression value(R"--("\s*\+\s*[^;",()]*(?:\((?:[^()";]|\([^()";]*\))*\)[^;",()]*)*\+\s*")--");
  const QRegularExpression literal(R"--((\+\s*)?"((?:[^"\\\n]|\\.)*)"(\s*\+)?)--");
  std::vector<ProgramText> texts;
  QDirIterator files(SOURCE_FOLDER "/src", {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString file = files.next();
    if (file.contains(otherPrograms)) continue;
    const QString source = ReadText(file).remove(comments).remove(goesOn).replace(value, "%0");
    for (auto all = literal.globalMatch(source); all.hasNext();) {
      const QRegularExpressionMatch each = all.next();
      const QString raw = each.captured(2).replace("\\n", " ").replace("\\\"", "\"").remove('&');
      const QString text = raw.simplified();
      QString pattern = QRegularExpression::escape(text).replace(QRegularExpression("\\\\%\\d"), ".{1,120}?");
      texts.push_back({file, text, pattern, each.hasCaptured(1) || raw.startsWith(' '),
                       each.hasCaptured(3) || QString(" :").contains(raw.right(1))});
    }
  }
  return texts;
}

class ManualTest : public testing::Test {
protected:
  ManualTest() {
    for (const QString& name : QDir(Folder).entryList({"*.html"})) {
      pages.insert(name, ReadText(Folder + name));
      words += PlainPage(pages[name]).second + '\n';
      for (const QString& id : Captures(pages[name], "id=\"([^\"]*)\""))
        places.append(name + '#' + id);
    }
    EXPECT_GT(pages.size(), 20);
  }

  QMap<QString, QString> pages; // indexed by file name
  QString words;                // the texts of all pages
  QStringList places{"https://www.calvorne-vtr.example/"};
};

TEST_F(ManualTest, KnowsEveryMessageOfTheProgram) {
  const QRegularExpression notOnScreen("^Data file of LR720[01] Radio Series|^usage: "), sentence("[.!?]$");
  // The reasons why a radio was not programmed. Refusals of a list are self-explanatory, so the manual omits them.
  const QRegularExpression reasons("/src/fleet/(?!plan|window|journal/)");
  int count = 0;
  for (const ProgramText& each : ProgramTexts()) {
    const auto length = each.text.count(' ') + 1;
    if (each.text.contains(notOnScreen) || length < 2) continue;
    if (!each.text.contains(sentence) && (length < 4 || !each.file.contains(reasons))) continue;
    ++count;
    EXPECT_TRUE(words.contains(QRegularExpression(each.pattern)))
        << each.file.toStdString() << ": " << each.text.toStdString();
  }
  EXPECT_GT(count, 60);
}

// With examples for the values that a message fills in.
TEST_F(ManualTest, ListsNoMessageThatTheProgramDoesNotHave) {
  EXPECT_FALSE(words.contains(QRegularExpression("%\\d"))) << "readers see placeholders";
  const QString systemReason = "COM1: Permission denied"; // the words after the colon are the system's
  std::vector<QRegularExpression> patterns;
  for (const ProgramText& each : ProgramTexts())
    if (each.text.count(QRegularExpression("[a-z]")) >= 8)
      patterns.emplace_back(QRegularExpression::anchoredPattern((each.isOpenAtStart ? ".*" : "") + each.pattern +
                                                                (each.isOpenAtEnd ? ".*" : "")));
  const QStringList cells = Captures(pages["messages.html"], "<tr><td><b>([^\\0]*?)</b>");
  EXPECT_GT(cells.size(), 70);
  for (const QString& cell : cells)
    for (const QString& html : cell.split("<br>")) {
      const QString message = PlainPage(html).second;
      const auto isOne = [&](const QRegularExpression& pattern) { return pattern.match(message).hasMatch(); };
      EXPECT_TRUE(message == systemReason || std::ranges::any_of(patterns, isOne)) << message.toStdString();
    }
}

TEST_F(ManualTest, ListsEveryPageOnceAndHasNoLinkThatLeadsNowhere) {
  const QString project = ReadText(Folder + "MR4500X.qhp");
  QStringList contents = Captures(project, "<section ([^>/]*)");
  for (const auto& [name, html] : pages.asKeyValueRange()) {
    const QString section = QString("title=\"%1\" ref=\"%2\"").arg(PlainPage(html).first, name);
    EXPECT_TRUE(contents.removeOne(section)) << section.toStdString();
  }
  EXPECT_TRUE(contents.isEmpty()) << contents.join(", ").toStdString();
  pages.insert("MR4500X.qhp", project);
  for (const auto& [name, html] : pages.asKeyValueRange())
    for (const QString& address : Captures(html, "(?:ref|src)=\"([^\"]*)\"")) {
      const QString place = address.startsWith('#') ? name + address : address;
      EXPECT_TRUE(places.count(place) == 1 || QFile::exists(Folder + place) || QFile::exists(Docs + place))
          << name.toStdString() << " names " << address.toStdString();
    }
}

// A browser can be started with a page, but not with a place in it.
TEST_F(ManualTest, HasAPageForABrowserAtThePlaceOfEachSetting) {
  const QTemporaryDir site;
  ASSERT_EQ(QProcess::execute("sh", {Folder + "make-site", site.path()}), 0);
  const QStringList settings = Captures(pages["settings.html"].simplified(), "<td><a href=\"([^\"]*#[^\"]*)\"");
  EXPECT_GT(settings.size(), 20);
  for (const QString& place : settings) {
    const QString leading = QString(place).replace(".html#", "-") + ".html";
    EXPECT_TRUE(ReadText(site.filePath(leading)).contains("url=" + place)) << place.toStdString();
  }
}

} // namespace
} // namespace mr4500x
