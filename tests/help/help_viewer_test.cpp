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
    std::filesystem::permissions(Path("viewer"), std::filesystem::perms(0700));
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
  QtHelpViewer help(*this, Path("MR4500X.hlp"), Script("echo \"$1 ${2##*/} $3 $4 $5\" >>$0.log; head -n 3 >>$0.log"));
  std::string expected;
  for (int viewer = 1; viewer <= 2; ++viewer) {
    help.OpenContents();
    help.OpenIndex();
    help.OpenPage("scan.html#delay");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !help.IsRunning(); }));
    expected += "-collectionFile MR4500X.qhc -enableRemoteControl -qwindowgeometry 800x700+0+50\n"
                "show contents;expandToc 1;setSource qthelp://mr4500x/help/index.html\nshow index\n"
                "show contents;setSource qthelp://mr4500x/help/scan.html#delay;syncContents\n";
    EXPECT_EQ(Content("viewer.log"), expected);
  }
  EXPECT_EQ(Reported(), "");
}

TEST_F(HelpViewerTest, EndsTheViewerWithTheProgramAndReportsItsFailureAtTheNextRequest) {
  std::filesystem::remove(Path("MR4500X.hlp.sha256")); // a copied help file has none
  const std::string viewer = Script("trap 'echo ended >$0.log; exit' TERM; touch $0.run; while sleep 0.05; do :; done");
  {
    QtHelpViewer help(*this, Path("MR4500X.hlp"), viewer);
    help.OpenContents();
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(viewer + ".run"); }));
  }
  EXPECT_EQ(Content("viewer.log"), "ended\n");
  QtHelpViewer help(*this, Path("MR4500X.hlp"), Script("printf 'a\\nno display\\n' >&2; exit 3"));
  help.OpenContents();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !help.IsRunning(); }));
  EXPECT_EQ(Reported(), "");
  help.OpenContents();
  EXPECT_EQ(Reported(), "The help viewer " + viewer + " has failed: no display");
}

TEST_F(HelpViewerTest, SaysWhyItCanNotShowTheHelp) {
  std::string bytes = Content("MR4500X.hlp");
  Put("short.hlp", bytes.substr(0, 1000));
  Put("header.hlp", bytes.substr(0, 99));
  Put("text.hlp", std::string(4096, '\0'));
  bytes[bytes.size() / 2] ^= 1;
  Put("middle.hlp", bytes);
  std::filesystem::copy(Path("MR4500X.hlp.sha256"), Path("middle.hlp.sha256"));
  const std::string broken = Script({}, "/none");
  const std::string damaged = "The help file FILE is damaged or can't be read."; // FILE is its path
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"none.hlp", "true", "The help file FILE is missing."},
      {"short.hlp", "true", damaged},
      {"header.hlp", "true", damaged},
      {"text.hlp", "true", damaged},
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
