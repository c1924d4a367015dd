// The program's side of the help: real child processes, Qt Assistant among them.
#include "qt_help_viewer.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace mr4500x {
namespace {

struct Messages final : MessageView {
  std::vector<std::string> texts;
  Answer Show(MessageIcon, std::string_view, std::string_view text, MessageButtons) override {
    texts.emplace_back(text);
    return Answer::Ok;
  }
};

class HelpViewerTest : public testing::Test {
protected:
  HelpViewerTest() {
    for (const char* name : {"/MR4500X.hlp", "/MR4500X.qhc"})
      EXPECT_TRUE(QFile::copy(QLatin1String(HELP_FOLDER) + name, folder.path() + name));
  }
  // Stands for Assistant; $0.log is what it has been told.
  std::string Script(const QByteArray& lines, const QByteArray& shell = "/bin/sh") {
    QFile file(folder.filePath("viewer"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("#!" + shell + "\n" + lines + "\n") > 0);
    EXPECT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    return file.fileName().toStdString();
  }
  std::string Log() {
    QFile file(folder.filePath("viewer.log"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
  }
  void Store(const char* name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
  }
  std::string HelpFile() const { return folder.filePath("MR4500X.hlp").toStdString(); }
  // Assistant's own copy of the collection.
  QString Copy() const { return folder.filePath("help-copy/MR4500X.qhc"); }

  QTemporaryDir folder;
  Messages messages;
};

constexpr char Contents[] = "show contents;expandToc 1;setSource qthelp://mr4500x/help/index.html\n";

TEST_F(HelpViewerTest, TellsOneViewerWhatToShow) {
  QtHelpViewer help(messages, HelpFile(), Script("echo \"$1 ${2##*/} $3\" >$0.log; exec cat >>$0.log"));
  help.OpenContents();
  help.OpenIndex();
  help.OpenContents();
  const std::string expected =
      std::string("-collectionFile MR4500X.qhc -enableRemoteControl\n") + Contents + "show index\n" + Contents;
  EXPECT_TRUE(QTest::qWaitFor([&] { return Log() == expected; })) << Log();
  EXPECT_TRUE(messages.texts.empty());
}

TEST_F(HelpViewerTest, StartsAgainAfterTheReaderHasClosedTheHelp) {
  QtHelpViewer help(messages, HelpFile(), Script("read line; echo once >>$0.log"));
  help.OpenIndex();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !help.IsRunning(); }));
  help.OpenIndex();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Log() == "once\nonce\n"; })) << Log();
  EXPECT_TRUE(messages.texts.empty());
}

TEST_F(HelpViewerTest, EndsWithTheProgramHoweverItEnds) {
  const std::string script =
      Script("trap 'echo end >>$0.log; exit' TERM; echo start >$0.log; while :; do sleep 0.02; done");
  for (const bool killed : {false, true}) {
    SCOPED_TRACE(killed ? "killed" : "ended");
    QFile::remove(folder.filePath("viewer.log"));
    const pid_t program = fork();
    if (program == 0) {
      {
        QtHelpViewer help(messages, HelpFile(), script);
        help.OpenContents();
        while (Log() != "start\n")
          usleep(1000);
        if (killed) raise(SIGKILL);
      }
      _exit(0);
    }
    waitpid(program, nullptr, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Log() == "start\nend\n"; })) << Log();
  }
}

TEST_F(HelpViewerTest, SaysWhyItCanNotShowTheHelp) {
  QFile whole(folder.filePath("MR4500X.hlp"));
  ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
  const QByteArray bytes = whole.readAll();
  Store("short.hlp", bytes.left(bytes.size() / 2));
  Store("empty.hlp", "");
  Store("other.hlp", QByteArray(200, 'x'));
  ASSERT_TRUE(QDir(folder.path()).mkdir("folder.hlp"));
  const std::string broken = Script({}, "/none");
  const struct {
    const char* file;
    std::string viewer;
    const char* text; // %1 is the file, %2 the viewer
  } cases[] = {
      {"none.hlp", "true", "The help file %1 is missing."},
      {"short.hlp", "true", "The help file %1 is damaged or can't be read."},
      {"empty.hlp", "true", "The help file %1 is damaged or can't be read."},
      {"other.hlp", "true", "The help file %1 is damaged or can't be read."},
      {"folder.hlp", "true", "The help file %1 is damaged or can't be read."},
      {"MR4500X.hlp", "no-such-viewer", "The help viewer is missing. Please install the package assistant-qt6."},
      {"MR4500X.hlp", broken, "The help viewer %2 can't be started: "},
  };
  for (const auto& [file, viewer, text] : cases) {
    SCOPED_TRACE(file + (" " + viewer));
    QtHelpViewer help(messages, folder.filePath(file).toStdString(), viewer);
    help.OpenContents();
    EXPECT_FALSE(help.IsRunning());
    ASSERT_EQ(messages.texts.size(), 1U);
    const QString expected = QString(text).replace("%1", folder.filePath(file)).replace("%2", broken.c_str());
    EXPECT_TRUE(QString::fromStdString(messages.texts[0]).startsWith(expected)) << messages.texts[0];
    messages.texts.clear();
  }
}

TEST_F(HelpViewerTest, AssistantOpensTheManual) {
  QtHelpViewer help(messages, HelpFile());
  help.OpenContents();
  help.OpenIndex();
  EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(Copy() + "-journal") || QFile::exists(Copy()); }, 20000));
  QTest::qWait(1000);
  EXPECT_TRUE(help.IsRunning());
  EXPECT_TRUE(messages.texts.empty());
}

TEST_F(HelpViewerTest, TheNextRequestSaysWhyAssistantFailed) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("help-copy"));
  Store("help-copy/MR4500X.qhc", "damaged");
  QtHelpViewer help(messages, HelpFile());
  help.OpenContents();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !help.IsRunning(); }, 20000));
  help.OpenContents();
  ASSERT_EQ(messages.texts.size(), 1U);
  EXPECT_NE(messages.texts[0].find("has failed: Error"), std::string::npos) << messages.texts[0];
  QFile::remove(Copy());
  help.OpenContents();
  EXPECT_TRUE(help.IsRunning());
}

} // namespace
} // namespace mr4500x
