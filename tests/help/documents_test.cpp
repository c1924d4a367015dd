// Checks the documents against the sources: every name in them exists, and so does every decision that the sources
// cite.
#include "source_texts.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

namespace mr4500x {
namespace {

const QString Root = SOURCE_FOLDER "/";
const char* const Identifier = "([A-Za-z_]\\w{2,})"; // shorter ones are bytes and units

class DocumentsTest : public testing::Test {
protected:
  DocumentsTest() {
    for (const char* const folder : {"docs", "src", "tests", "bench", "fuzz", "help", "packaging", "tools", ".ci"})
      for (QDirIterator files(Root + folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
           files.hasNext();)
        Take(files.next());
    for (const QFileInfo& file : QDir(Root).entryInfoList(QDir::Files | QDir::Hidden))
      Take(file.filePath());
    EXPECT_GT(documents.size(), 8);
    EXPECT_GT(names.size(), 3000);
  }

  void Take(const QString& path) {
    paths += '/' + QDir(Root).relativeFilePath(path) + '\n';
    if (path.endsWith(".md")) {
      documents[path] = ReadText(path);
    } else if (!path.endsWith(".png")) {
      const QString text = ReadText(path);
      for (const QString& name : Captures(text, Identifier))
        names.insert(name);
      if (path.endsWith(".h") || path.endsWith(".cpp")) sources += text + '\f';
    }
  }

  // "A::B" is a B in the file that defines A, or is written like that somewhere.
  bool HasMember(const QString& type, const QString& member) const {
    if (sources.contains(type + "::" + member)) return true;
    const QRegularExpression definition("\\b(?:class|struct|enum|namespace|using) (?:class )?" + type +
                                        "\\b[^\\f]*\\b" + member + "\\b");
    return definition.match(sources).hasMatch();
  }

  QMap<QString, QString> documents; // indexed by path
  QSet<QString> names;              // all that the other files mention
  QString sources, paths;
};

TEST_F(DocumentsTest, NameOnlyWhatExists) {
  const QRegularExpression members("\\b([A-Z]\\w+)::(\\w+)");
  for (const auto& [path, text] : documents.asKeyValueRange()) {
    for (const QString& link : Captures(text, "\\]\\(([^)#:]+)(?:#[^)]*)?\\)"))
      EXPECT_TRUE(QFileInfo::exists(QFileInfo(path).dir().filePath(link)))
          << path.toStdString() << ": " << link.toStdString();
    for (const QString& quoted : Captures(text, "(?<!`)`([^`]+)`(?!`)")) {
      const std::string where = path.toStdString() + ": `" + quoted.toStdString() + "`";
      for (const QString& file : Captures(quoted, "^((?:src|tests|docs|help|tools|packaging|bench|fuzz)/[\\w./-]+)$"))
        EXPECT_TRUE(QFileInfo::exists(Root + file)) << where;
      for (const QString& file : Captures(quoted, "^([a-z_]+\\.(?:h|cpp|txt|sh|html|svg))$"))
        EXPECT_TRUE(paths.contains('/' + file + '\n')) << where;
      for (const QString& name : Captures(quoted, Identifier))
        EXPECT_TRUE(names.contains(name) || paths.contains(name)) << where;
      for (auto all = members.globalMatch(quoted); all.hasNext();) {
        const QRegularExpressionMatch each = all.next();
        EXPECT_TRUE(HasMember(each.captured(1), each.captured(2))) << where;
      }
    }
  }
}

TEST_F(DocumentsTest, HaveEachDecisionThatIsCitedOnce) {
  const QStringList decisions = Captures(documents[Root + "docs/decisions.md"], "(?m)^\\| (D-\\d\\d) \\|");
  EXPECT_GT(decisions.size(), 30);
  EXPECT_EQ(QSet<QString>(decisions.begin(), decisions.end()).size(), decisions.size()) << "an id is given twice";
  for (const QString& cited : Captures(sources + documents.values().join('\n'), "\\b(D-\\d\\d)\\b"))
    EXPECT_TRUE(decisions.contains(cited)) << cited.toStdString();
}

// The table of the architecture, and its picture, against what is linked.
TEST_F(DocumentsTest, ShowEachLayerWithWhatItLinks) {
  QString build;
  for (QDirIterator files(Root + "src", {"CMakeLists.txt"}, QDir::Files, QDirIterator::Subdirectories);
       files.hasNext();)
    build += ReadText(files.next());
  const QStringList layers =
      Captures(build, "mr4500x_layer\\((\\w+)") + QStringList{"machine_interfaces", "desktop_interfaces"};
  EXPECT_GT(layers.size(), 15);
  const auto layersIn = [&](const QString& text, const char* pattern) { // sorted by name
    QStringList found = Captures(text, pattern);
    found.removeIf([&](const QString& name) { return !layers.contains(name); });
    found.sort();
    return found.join(' ').toStdString();
  };
  const QString& page = documents[Root + "docs/architecture.md"];
  const QString picture = ReadText(Root + "docs/pictures/architecture.svg");
  for (const QString& layer : layers) {
    EXPECT_TRUE(picture.contains('>' + layer + '<')) << layer.toStdString();
    if (layer.endsWith("_interfaces")) continue;
    const QRegularExpression row("\\n\\| `" + layer + "` \\|[^|]*\\|([^|]*)\\|"),
        linked("libraries\\(" + layer + "\\b([^)]*)\\)");
    EXPECT_EQ(layersIn(row.match(page).captured(1), "`(\\w+)`"), layersIn(linked.match(build).captured(1), "(\\S+)"))
        << layer.toStdString();
  }
}

} // namespace
} // namespace mr4500x
