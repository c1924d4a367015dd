// Open, Close, Save, Save As and the recent files, through the main window.
#include "program_fixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTableView>

namespace mr4500x {
namespace {

TEST_F(ProgramTest, OpensAFileAndKnowsItAgain) {
  image.ChannelBlock(0, 1) = 0x21;
  PutDataFile("a.K4X");
  OpenFile("a.K4X");
  EXPECT_EQ(window->Image().ChannelBlock(0, 1), 0x21);
  EXPECT_FALSE(window->State().ModifiedFlag);
  EXPECT_TRUE(Item("mnuFileClose")->isEnabled());
  const FileQuestion& asked = desk.questions.back();
  EXPECT_EQ(asked.filter, "Data Files(*.K4X)|*.K4X|Data Files(*.K4Y)|*.K4Y");
  EXPECT_EQ(asked.folder, Path(""));
  EXPECT_EQ(asked.extension, "K4X");

  Edit();
  OpenFile("a.K4X"); // neither asks nor reads
  EXPECT_TRUE(window->State().ModifiedFlag);
  std::filesystem::remove(Path("a.K4X"));
  desk.paths = {Path("a.K4X")};
  Choose("mnuFileOpen");
  EXPECT_EQ(Happened(), (Lines{"dialog Open", damaged}));
  EXPECT_EQ(Title(), TitleOf("a.K4X")); // and its data
}

TEST_F(ProgramTest, RefusesFilesThatAreNone) {
  PutDataFile("good.K4X");
  const std::string good = Content("good.K4X");
  const std::string notice =
      "!|New Version File|This software version isn't applied to the radio, please use new software.";
  const auto changed = [&](std::size_t at, std::size_t count, const std::string& with) {
    return std::string(good).replace(at, count, with);
  };
  const struct {
    std::string content;
    Lines messages;
    bool opens;
  } cases[] = {
      {good.substr(0, 600), {damaged}, false},
      {"", {damaged}, false},
      {changed(4 + 17, 2, "18"), {"i|Error|Error Version of this File!"}, false},
      {changed(4 + 13, 6, "LR7209"), {"i|Error|Later Version of this File!"}, false},
      {changed(51, 2, std::string("\x02\0\x01\0", 4)), {notice}, true},
  };
  for (const auto& [content, messages, opens] : cases) {
    Put("b.K4X", content);
    desk.paths = {Path("b.K4X")};
    Choose("mnuFileOpen");
    Lines expected = {"dialog Open"};
    expected.insert(expected.end(), messages.begin(), messages.end());
    EXPECT_EQ(Happened(), expected);
    EXPECT_EQ(Title(), opens ? TitleOf("b.K4X") : ProgramTitle);
    EXPECT_EQ(Item("mnuFileClose")->isEnabled(), opens);
  }
}

TEST_F(ProgramTest, AsksBeforeDataIsLost) {
  PutDataFile("a.K4X");
  PutDataFile("b.K4X");
  const struct {
    bool edited;
    Answer answer;
    bool asks, closes, saves;
  } cases[] = {
      {false, Answer::Cancel, false, true, false},
      {true, Answer::Cancel, true, false, false},
      {true, Answer::No, true, true, false},
      {true, Answer::Yes, true, true, true},
  };
  for (const std::string command : {"mnuFileClose", "mnuFileOpen"})
    for (const auto& [edited, answer, asks, closes, saves] : cases) {
      SCOPED_TRACE(command + std::to_string(static_cast<int>(answer)) + std::to_string(edited));
      const bool opens = command == "mnuFileOpen";
      OpenFile("a.K4X");
      std::filesystem::remove(Path("a.K4X"));
      if (edited) Edit();
      desk.answers = {answer};
      if (opens) desk.paths = {Path("b.K4X")};
      Choose(command);
      Lines expected;
      if (opens) expected.emplace_back("dialog Open");
      if (asks) expected.push_back(question);
      EXPECT_EQ(Happened(), expected);
      EXPECT_EQ(Title(), !closes ? TitleOf("a.K4X") : opens ? TitleOf("b.K4X") : ProgramTitle);
      EXPECT_EQ(window->State().ModifiedFlag, !closes);
      EXPECT_EQ(Item("mnuFileClose")->isEnabled(), opens || !closes);
      EXPECT_EQ(std::filesystem::exists(Path("a.K4X")), saves);
      PutDataFile("a.K4X");
      desk.answers = {Answer::No};
      Choose("mnuFileClose");
      Happened();
    }
}

TEST_F(ProgramTest, CloseDropsTheTextOfAnOpenEditor) {
  PutDataFile("a.K4X");
  OpenFile("a.K4X");
  auto* const grid = window->findChild<QTableView*>("gridChannel");
  auto* const editor = window->findChild<QLineEdit*>("txtChFreq");
  grid->setFocus();
  QTest::keyClick(grid, Qt::Key_Space);
  ASSERT_FALSE(editor->isHidden());
  QTest::keyClicks(editor, "450.1");
  bool hidden = false, unchanged = false;
  desk.answers = {Answer::Cancel};
  desk.beforeAnswer = [&] {
    hidden = editor->isHidden();
    unchanged = grid->model()->index(0, 0).data() == "440.00000";
  };
  Choose("mnuFileClose");
  EXPECT_EQ(Happened(), Lines{question});
  EXPECT_TRUE(hidden);
  EXPECT_TRUE(unchanged);
}

TEST_F(ProgramTest, SavesWhereTheDataBelongs) {
  Edit();
  Choose("mnuFileSave"); // cancelled: nothing happens
  EXPECT_EQ(Happened(), Lines{"dialog Save"});
  EXPECT_EQ(Title(), ProgramTitle);
  EXPECT_TRUE(window->State().ModifiedFlag);

  const auto takeIntoUse = [&](int index) {
    window->findChild<QCheckBox*>(QStringLiteral("chkCH(%1)").arg(index))->click();
  };
  constexpr std::size_t firstFlags = 73; // byte 0 of channel 1; those of the others follow
  constexpr char inUse = '\x81';
  takeIntoUse(1);
  desk.paths = {Path("a.K4X")};
  Choose("mnuFileSave");
  EXPECT_EQ(Happened(), Lines{"dialog Save"});
  EXPECT_EQ(Content("a.K4X").at(firstFlags + 1), inUse);
  EXPECT_EQ(desk.questions.back().filter, "Data files(*.K4X)|*.K4X|Data files(*.K4Y)|*.K4Y");
  EXPECT_EQ(Content("a.K4X").size(), DataFileBytes);
  EXPECT_EQ(Title(), TitleOf("a.K4X"));
  EXPECT_FALSE(window->State().ModifiedFlag);
  EXPECT_TRUE(Item("mnuFileClose")->isEnabled());

  std::filesystem::remove(Path("a.K4X"));
  takeIntoUse(2);
  Happened();
  Choose("mnuFileSaveAs"); // cancelled
  EXPECT_EQ(Happened(), Lines{"dialog Save As"});
  EXPECT_EQ(Names(), std::set<std::string>{"MR4500X.ini"});
  desk.paths = {Path("c.K4X")};
  Choose("mnuFileSaveAs");
  EXPECT_EQ(Content("c.K4X").at(firstFlags + 2), inUse);
  EXPECT_EQ(desk.questions.back().proposedName, Path("a.K4X"));
  EXPECT_EQ(Title(), TitleOf("c.K4X"));
  std::filesystem::remove(Path("c.K4X"));
  Edit();
  Happened();
  Choose("mnuFileSave"); // needs no dialog
  EXPECT_EQ(Happened(), Lines{});
  EXPECT_EQ(Names(), (std::set<std::string>{"MR4500X.ini", "c.K4X"}));
}

TEST_F(ProgramTest, TellsThatAFileCouldNotBeSaved) {
  PutDataFile("a.K4X");
  OpenFile("a.K4X");
  Edit();
  files.unwritable = {Path("a.K4X")};
  Choose("mnuFileSave");
  EXPECT_EQ(Happened(), Lines{"!|Save File Error|File hasn't been saved. Please try again!"});
  desk.paths = {Path("nowhere/b.K4X")};
  Choose("mnuFileSaveAs");
  EXPECT_EQ(Happened(), (Lines{"dialog Save As", "!|Save File Error|File hasn't been saved. Please redo!"}));
  EXPECT_EQ(Title(), TitleOf("a.K4X"));
  EXPECT_EQ(Recent(), Lines{" 1 " + Path("a.K4X")});
  EXPECT_TRUE(window->State().ModifiedFlag);
}

TEST_F(ProgramTest, OpensRecentFilesAndForgetsMissingOnes) {
  for (const char* name : {"a & b.K4X", "c.K4X"}) {
    PutDataFile(name);
    OpenFile(name);
  }
  EXPECT_EQ(Recent(), (Lines{" 1 " + Path("c.K4X"), " 2 " + Path("a && b.K4X")})); // a doubled & is no access key
  Choose("mnuRecent(2)");
  EXPECT_EQ(Title(), TitleOf("a & b.K4X"));
  EXPECT_EQ(window->State().LastFileName, Path("a & b.K4X"));
  EXPECT_EQ(Recent(), (Lines{" 1 " + Path("a && b.K4X"), " 2 " + Path("c.K4X")}));
  EXPECT_EQ(Happened(), Lines{});

  std::filesystem::remove(Path("c.K4X"));
  Choose("mnuRecent(2)");
  EXPECT_EQ(Happened(), Lines{damaged});
  EXPECT_EQ(Recent(), Lines{" 1 " + Path("a && b.K4X")});
  EXPECT_EQ(Title(), TitleOf("a & b.K4X"));
}

} // namespace
} // namespace mr4500x
