// The main program's side of the help: real child processes.
#include "qt_help_viewer.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

struct Messages final : MessageView {
  std::vector<std::string> texts;
  Answer Show(MessageIcon, std::string_view, std::string_view text, MessageButtons) override {
    texts.emplace_back(text);
    return Answer::Ok;
  }
};

class HelpProcessTest : public testing::Test {
protected:
  // A viewer that does what the lines of a script say; $1 is the help file.
  std::string Script(const QByteArray& lines) {
    QFile file(folder.filePath("viewer"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("#!/bin/sh\n" + lines + "\n") > 0);
    EXPECT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    return file.fileName().toStdString();
  }
  QByteArray Received() {
    QFile file(Book());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  QString Book() const { return folder.filePath("requests"); }

  QTemporaryDir folder;
  Messages messages;
};

TEST_F(HelpProcessTest, ReusesTheViewerAndEndsItWithTheProgram) {
  {
    QtHelpViewer help(messages, Script("cat >>\"$1\"; echo end >>\"$1\""), Book().toStdString());
    help.OpenContents();
    help.OpenIndex();
    help.OpenContents();
  }
  EXPECT_EQ(Received(), "contents\nindex\ncontents\nend\n");
  EXPECT_TRUE(messages.texts.empty());
}

TEST_F(HelpProcessTest, TellsThatTheViewerCanNotBeStarted) {
  const std::string program = folder.filePath("none").toStdString();
  QtHelpViewer help(messages, program, Book().toStdString());
  help.OpenContents();
  help.OpenIndex();
  ASSERT_EQ(messages.texts.size(), 2U);
  EXPECT_NE(messages.texts[0].find(program), std::string::npos) << messages.texts[0];
}

// Also when it is asked for nothing more, and while it reports a file that it can't read.
TEST_F(HelpProcessTest, TheViewerEndsWithItsInput) {
  const struct {
    QString file;
    QByteArray requests;
    int status;
  } cases[] = {
      {TEST_BOOK, "", 0},
      {TEST_BOOK, "contents\nindex\n", 0},
      {folder.filePath("missing.hlp"), "contents\n", 1},
      {Book(), "index\n", 1}, // damaged
  };
  QFile damaged(Book());
  ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write("no help") > 0);
  damaged.close();
  for (const auto& [file, requests, status] : cases) {
    QProcess viewer;
    viewer.start(HELP_VIEWER, {file});
    viewer.write(requests);
    viewer.closeWriteChannel();
    ASSERT_TRUE(viewer.waitForFinished()) << file.toStdString();
    EXPECT_EQ(viewer.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(viewer.exitCode(), status) << file.toStdString();
  }
}

} // namespace
} // namespace mr4500x
