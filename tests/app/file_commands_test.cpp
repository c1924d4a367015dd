// Open, Close, Save, Save As and the recent files, through the main window.
#include "program_fixture.h"

namespace mr4500x {
namespace {

TEST_F(ProgramTest, RefusesFilesThatAreNotDataFiles) {
  image.ChannelBlock(4, 0) = 0x81;
  PutDataFile("good.K4X");
  const std::string good = Content("good.K4X");
  const struct {
    const char* name;
    std::size_t at, count; // the replaced bytes
    std::string with;
    std::string message;
    bool opens = false;
  } cases[] = {
      {"another version", 4 + 17, 2, "18", "i|Error|Error Version of this File!"},
      {"another radio", 4 + 13, 6, "LR7209", "i|Error|Later Version of this File!"},
      {"cut off", 600, 1000, "", damaged},
      {"newer", 51, 2, std::string("\x02\0\x01\0", 4),
       "!|New Version File|This software version isn't applied to the radio, please use new software.", true},
  };
  for (const auto& [name, at, count, with, message, opens] : cases) {
    SCOPED_TRACE(name);
    Put("b.K4X", std::string(good).replace(at, count, with));
    EXPECT_EQ(HappenedAt("mnuFileOpen", {}, "b.K4X"), (Lines{"dialog Open", message}));
    EXPECT_EQ(Title(), opens ? TitleOf("b.K4X") : std::string(ProgramTitle));
    EXPECT_EQ(Item("mnuFileClose")->isEnabled(), opens);
    EXPECT_EQ(window->State().ImageIsPartial, at == 600);
  }
}

// The fill ends early, so the file's own number stays in force.
TEST_F(ProgramTest, AFileWithoutAStoredStandardKeepsTheOneThatItNames) {
  const struct {
    const char* name;
    std::int16_t named, saved;
  } cases[] = {{"valid", 8, 8}, {"none either", 0, 1}, {"out of range", 12, 1}};
  for (const auto& [name, named, saved] : cases) {
    SCOPED_TRACE(name);
    image.ResetTimeBlock[StandardByte] = 0;
    image.FiveToneStandard = named;
    PutDataFile("a.K4X");
    EXPECT_EQ(HappenedAt("mnuFileOpen", {}, "a.K4X"),
              (Lines{"dialog Open", "!|Data Error|Data occur error in the Radio, please re-set."}));
    Choose("mnuFileSave");
    RadioImage file;
    EXPECT_EQ(LoadDataFile(files, Path("a.K4X"), file).outcome, LoadOutcome::Loaded);
    EXPECT_EQ(std::tuple(file.FiveToneStandard, file.ResetTimeBlock[StandardByte]), std::tuple(saved, saved));
    Choose("mnuFileClose");
  }
}

TEST_F(ProgramTest, OpensFilesAndRemembersThemUntilTheyAreMissing) {
  image.ChannelBlock(0, 1) = 0x21;
  for (const char* name : {"a & b.K4X", "c.K4X"}) {
    PutDataFile(name);
    OpenFile(name);
  }
  EXPECT_EQ(window->Image().ChannelBlock(0, 1), 0x21);
  EXPECT_EQ(desktop.lastQuestion.filter, "Data Files(*.K4X)|*.K4X|Data Files(*.K4Y)|*.K4Y");
  EXPECT_EQ(desktop.lastQuestion.folder, Path(""));
  const std::string a = Path("a && b.K4X"), c = Path("c.K4X"); // a doubled & is not an access key
  EXPECT_EQ(Recent(), (Lines{" 1 " + c, " 2 " + a}));
  Choose("mnuRecent(2)");
  EXPECT_EQ(Title(), TitleOf("a & b.K4X"));
  EXPECT_EQ(Recent(), (Lines{" 1 " + a, " 2 " + c}));
  EXPECT_EQ(Happened(), Lines{});
  std::filesystem::remove(c);
  std::filesystem::create_symlink("nowhere", c);
  Edit();
  OpenFile("a & b.K4X"); // the open one: neither asks nor reads
  EXPECT_EQ(HappenedAt("mnuRecent(2)"), Lines{damaged}) << "nothing is asked or closed";
  EXPECT_TRUE(window->State().ModifiedFlag);
  EXPECT_EQ(Recent(), Lines{" 1 " + a});
  EXPECT_EQ(Title(), TitleOf("a & b.K4X"));
  const std::string longName = std::string(150, 'd') + ".K4X";
  PutDataFile(longName);
  Choose("mnuFileOpen", {Answer::No}, longName);
  EXPECT_TRUE(Recent()[0].size() < 150 && Recent()[0].ends_with("d.K4X")) << Recent()[0];
}

// Whatever way a file is named on the command line, it has one title and one entry.
TEST_F(ProgramTest, OpensAFileOfTheCommandLineUnderItsPlainPath) {
  std::filesystem::create_directories(Path("far/folder"));
  std::filesystem::create_directory_symlink(Path("far/folder"), Path("link"));
  PutDataFile("a.K4X");
  PutDataFile("far/a.K4X");
  PutDataFile("[*]x[*][*].K4X");
  const std::string folder = std::filesystem::canonical(Path("")).string() + '/';
  const std::tuple<std::string, std::string> cases[] = {{"./a.K4X", "a.K4X"},
                                                        {"far/..//a.K4X", "a.K4X"},
                                                        {"link/../a.K4X", "far/a.K4X"}, // resolved by the system
                                                        {"./[*]x[*][*].K4X", "[*]x[*][*].K4X"}};
  for (const auto& [given, plain] : cases) {
    window->OpenArgument(QString::fromStdString(Path(given)));
    EXPECT_EQ(window->windowHandle()->title().toStdString(), "MR4500X Programming Software - " + folder + plain)
        << given;
  }
  EXPECT_EQ(Recent(),
            (Lines{" 1 " + folder + "[*]x[*][*].K4X", " 2 " + folder + "far/a.K4X", " 3 " + folder + "a.K4X"}));
}

} // namespace
} // namespace mr4500x
