// The program's side of the help: real child processes.
#include "qt_help_viewer.h"

#include "files_fixture.h"

#include <QTest>

#include <regex>

namespace mr4500x {
namespace {

class HelpViewerTest : public FilesTest, protected MessageView {
protected:
  HelpViewerTest() {
    for (const std::string name : {"MR4500X.hlp", "MR4500X.hlp.sha256", "MR4500X.qhc"})
      std::filesystem::copy(HELP_FOLDER "/" + name, Path(name));
  }
  // Replaces Assistant. $0.log has the commands that it has received.
  std::string Script(const std::string& lines, const std::string& shell = "/bin/sh") {
    Put("viewer", "#!" + shell + "\n" + lines + "\n");
    std::filesystem::permissions(Path("viewer"), std::filesystem::perms(0500));
    return Path("viewer");
  }
  Answer Show(MessageIcon, std::string_view, std::string_view text, MessageButtons) override {
    reported += text;
    return Answer::Ok;
  }
  std::string Reported() { return std::exchange(reported, {}); }

  std::string reported; // all messages
};

TEST_F(HelpViewerTest, DirectsOneViewerUntilTheReaderClosesIt) {
  QtHelpViewer help(*this, Path("MR4500X.hlp"), Script("echo \"$1 ${2##*/} $3\" >>$0.log; head -n 2 >>$0.log"));
  std::string expected;
  for (int viewer = 1; viewer <= 2; ++viewer) {
    help.OpenContents();
    help.OpenIndex();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !help.IsRunning(); }));
    expected += "-collectionFile MR4500X.qhc -enableRemoteControl\n"
                "show contents;expandToc 1;setSource qthelp://mr4500x/help/index.html\nshow index\n";
    EXPECT_EQ(Content("viewer.log"), expected);
  }
  EXPECT_EQ(Reported(), "");
}

TEST_F(HelpViewerTest, SaysWhyItCanNotShowTheHelp) {
  std::string bytes = Content("MR4500X.hlp");
  Put("short.hlp", bytes.substr(0, 1000));
  bytes[bytes.size() / 2] ^= 1;
  Put("middle.hlp", bytes);
  std::filesystem::copy(Path("MR4500X.hlp.sha256"), Path("middle.hlp.sha256"));
  const std::string broken = Script({}, "/none");
  const std::string damaged = "The help file FILE is damaged or can't be read."; // FILE is its path
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"none.hlp", "true", "The help file FILE is missing."},
      {"short.hlp", "true", damaged},
      {"middle.hlp", "true", damaged},
      {".", "true", damaged},
      {"MR4500X.hlp", "no-such-viewer", "The help viewer is missing. Please install the package assistant-qt6."},
      {"MR4500X.hlp", broken, "The help viewer " + broken + " can't be started: "}};
  for (const auto& [file, viewer, text] : cases) {
    QtHelpViewer help(*this, Path(file), viewer);
    help.OpenContents();
    EXPECT_FALSE(help.IsRunning()) << file << ' ' << viewer;
    const std::string expected = std::regex_replace(text, std::regex("FILE"), Path(file));
    EXPECT_TRUE(Reported().starts_with(expected)) << file << ' ' << viewer;
  }
}

} // namespace
} // namespace mr4500x
