// The program's side of the help: real child processes.
#include "qt_help_viewer.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

class HelpViewerTest : public testing::Test, protected MessageView {
protected:
  HelpViewerTest() {
    for (const char* name : {"/MR4500X.hlp", "/MR4500X.hlp.sha256", "/MR4500X.qhc"})
      EXPECT_TRUE(QFile::copy(QLatin1String(HELP_FOLDER) + name, folder.path() + name));
  }
  void Store(const char* name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
  }
  // Replaces Assistant. $0.log has the commands that it has received.
  std::string Script(const QByteArray& lines, const QByteArray& shell = "/bin/sh") {
    Store("viewer", "#!" + shell + "\n" + lines + "\n");
    EXPECT_TRUE(QFile::setPermissions(folder.filePath("viewer"), QFile::ReadOwner | QFile::ExeOwner));
    return folder.filePath("viewer").toStdString();
  }
  std::string Log() {
    QFile file(folder.filePath("viewer.log"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
  }
  std::string HelpFile() const { return folder.filePath("MR4500X.hlp").toStdString(); }
  Answer Show(MessageIcon, std::string_view, std::string_view text, MessageButtons) override {
    reported += text;
    return Answer::Ok;
  }
  std::string Reported() { return std::exchange(reported, {}); }

  QTemporaryDir folder;
  std::string reported; // all messages
};

TEST_F(HelpViewerTest, DirectsOneViewerUntilTheReaderClosesIt) {
  QtHelpViewer help(*this, HelpFile(), Script("echo \"$1 ${2##*/} $3\" >>$0.log; head -n 2 >>$0.log"));
  std::string expected;
  for (int viewer = 1; viewer <= 2; ++viewer) {
    help.OpenContents();
    help.OpenIndex();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !help.IsRunning(); }));
    expected += "-collectionFile MR4500X.qhc -enableRemoteControl\n"
                "show contents;expandToc 1;setSource qthelp://mr4500x/help/index.html\nshow index\n";
    EXPECT_EQ(Log(), expected);
  }
  EXPECT_EQ(Reported(), "");
}

TEST_F(HelpViewerTest, SaysWhyItCanNotShowTheHelp) {
  QFile whole(HelpFile().c_str());
  ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
  QByteArray bytes = whole.readAll();
  Store("short.hlp", bytes.first(1000));
  bytes[bytes.size() / 2] ^= 1;
  Store("middle.hlp", bytes);
  ASSERT_TRUE(QFile::copy(whole.fileName() + ".sha256", folder.filePath("middle.hlp.sha256")));
  const std::string broken = Script({}, "/none");
  const struct {
    const char* file;
    std::string viewer, text; // %1 is the file
  } cases[] = {
      {"none.hlp", "true", "The help file %1 is missing."},
      {"short.hlp", "true", "The help file %1 is damaged or can't be read."},
      {"middle.hlp", "true", "The help file %1 is damaged or can't be read."},
      {".", "true", "The help file %1 is damaged or can't be read."},
      {"MR4500X.hlp", "no-such-viewer", "The help viewer is missing. Please install the package assistant-qt6."},
      {"MR4500X.hlp", broken, "The help viewer " + broken + " can't be started: "},
  };
  for (const auto& [file, viewer, text] : cases) {
    const QString path = folder.filePath(file);
    QtHelpViewer help(*this, path.toStdString(), viewer);
    help.OpenContents();
    EXPECT_FALSE(help.IsRunning()) << file << ' ' << viewer;
    const std::string expected = QString::fromStdString(text).replace("%1", path).toStdString();
    EXPECT_TRUE(Reported().starts_with(expected)) << file << ' ' << viewer;
  }
}

} // namespace
} // namespace mr4500x
