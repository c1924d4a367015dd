// The manual against the program: it knows every message and every command of the command line tool, all its links lead
// somewhere, and every page can be reached.
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

const QString Folder = SOURCE_FOLDER "/help/", Docs = SOURCE_FOLDER "/docs/";

// What a reader sees of a page: its title and its text, without markup.
std::pair<QString, QString> PlainPage(const QString& html) {
  QTextDocument document;
  document.setHtml(html);
  return {document.metaInformation(QTextDocument::DocumentTitle), document.toPlainText().simplified()};
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

  QMap<QString, QString> pages; // by the name of the file
  QString words;                // of all pages
  QStringList places{"https://www.calvorne-vtr.example/"};
};

TEST_F(ManualTest, KnowsEveryMessageOfTheProgram) {
  const QRegularExpression notOnScreen("^Data file of LR720[01] Radio Series"), otherPrograms("/(cli|simulator|demo)/");
  const QRegularExpression comments("(^|\\s)//[^\\n]*"), goesOn("\"\\s*\\n\\s*\"");
  int count = 0;
  QDirIterator files(SOURCE_FOLDER "/src", {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString file = files.next();
    const QString source = file.contains(otherPrograms) ? "" : ReadText(file).remove(comments).remove(goesOn);
    for (QString text : Captures(source, "\"((?:[^\"\\\\\\n]|\\\\.)*)\"")) { // what is a sentence, as the user reads it
      if (!text.contains(' ') || !QString(".!?").contains(text.back()) || text.contains(notOnScreen)) continue;
      ++count;
      text = text.replace("\\n", " ").replace("\\\"", "\"").remove('&').simplified();
      for (const QString& part : text.split(QRegularExpression("%\\d"), Qt::SkipEmptyParts))
        EXPECT_TRUE(words.contains(part.trimmed())) << file.toStdString() << ": " << text.toStdString();
    }
  }
  EXPECT_GT(count, 45);
}

TEST_F(ManualTest, KnowsEveryCommandOfTheCommandLineTool) {
  const QString program = ReadText(SOURCE_FOLDER "/src/cli/main.cpp") +
                          ReadText(SOURCE_FOLDER "/src/cli/declare_file_commands.cpp") +
                          ReadText(SOURCE_FOLDER "/src/cli/fleet/declare_fleet_command.cpp");
  const QStringList commands = Captures(program, "(?:[cC]ommand\\([^,\"]*, |add_subcommand\\()\"([a-z]+)\"");
  EXPECT_GE(commands.size(), 14);
  for (const QString document :
       {"help/command-line.html", "packaging/man/mr4500x-cli.1", "packaging/mr4500x-cli.bash"}) {
    const QString text = ReadText(SOURCE_FOLDER "/" + document);
    for (const QString& command : commands)
      EXPECT_TRUE(text.contains(QRegularExpression("\\b" + command + "\\b")))
          << document.toStdString() << ": " << command.toStdString();
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

} // namespace
} // namespace mr4500x
