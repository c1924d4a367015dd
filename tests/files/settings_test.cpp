#include "settings.h"

#include "files_fixture.h"
#include "recent_files.h"
#include "rows.h"

#include <sys/stat.h>

namespace mr4500x {

namespace {

// The settings file of slots as recent_files.txt writes them.
std::string SlotsText(const std::string& slots) {
  std::istringstream in(slots + '|');
  std::string lines = "[Recent Files]\n", value;
  for (char slot = '1'; std::getline(in, value, '|'); ++slot)
    if (value != "-")
      lines += std::string("RecentFile") + slot + '=' + (value.starts_with(' ') ? '"' + value + '"' : value) + '\n';
  return lines;
}

} // namespace

TEST_F(FilesTest, RecentFilesShiftSlotBySlot) {
  for (const Row& row : RowsOf(CASES "recent_files.txt", "[^:]+: (.*) (add|remove) (.*) -> (.*)")) {
    Put("MR4500X.ini", SlotsText(Unescaped(row[1])));
    const auto change = row[2] == "add" ? AddRecent : RemoveRecent;
    EXPECT_TRUE(change(files, Path("MR4500X.ini"), Unescaped(row[3]))) << row[0];
    EXPECT_EQ(Content("MR4500X.ini"), SlotsText(Unescaped(row[4]))) << row[0];
  }
  Put("MR4500X.ini", SlotsText("/data/a.K4X||No File|-"));
  EXPECT_EQ(RecentFiles(files, Path("MR4500X.ini")), RecentFileList{"/data/a.K4X"});
  EXPECT_EQ(RecentCaption(1, "/data/a.K4X"), " 1 /data/a.K4X");
}

TEST_F(FilesTest, PathsOfOver255CharactersAreNotStored) {
  const std::string longest(255, 'a'), tooLong(256, 'b'), ini = Path("MR4500X.ini");
  Put("MR4500X.ini", "[Recent Files]\nRecentFile1=" + tooLong + "\nRecentFile2=c\n");
  EXPECT_TRUE(AddRecent(files, ini, longest));
  EXPECT_FALSE(AddRecent(files, ini, tooLong));
  EXPECT_TRUE(StoreSettings(files, ini, 1, tooLong));
  EXPECT_EQ(Content("MR4500X.ini"),
            "[Recent Files]\nRecentFile1=" + longest +
                "\nRecentFile2=c\nRecentFile3=c\n[Comm Port]\nCommon Port=1\n[File Name]\nDefault File=\n");
}

TEST_F(FilesTest, ThePortSettingIsANumberFromOneToSixteen) {
  for (const Row& row : RowsOf(CASES "port_settings.txt", "(.*) -> (\\d+)")) {
    Put("MR4500X.ini", "[Comm Port]\nCommon Port=" + row[1] + '\n');
    EXPECT_EQ(std::to_string(LoadPortSetting(files, Path("MR4500X.ini"))), row[2]) << row[0];
  }
}

TEST_F(FilesTest, ATraceGoesToAFileOnly) {
  std::filesystem::create_directory(Path("folder"));
  mkfifo(Path("pipe").c_str(), 0600);
  std::filesystem::create_symlink("pipe", Path("link"));
  Put("file", "");
  const std::pair<std::string, bool> cases[] = {
      {"file", true}, {"new", true}, {"folder", false}, {"pipe", false}, {"link", false}};
  for (const auto& [name, isTraced] : cases) {
    Put("MR4500X.ini", "[Comm Port]\nTrace=" + Path(name) + '\n');
    EXPECT_EQ(TraceFile(files, Path("MR4500X.ini")), isTraced ? Path(name) : "") << name;
  }
}

TEST_F(FilesTest, ALinkToAnotherUsersSettingsIsNotFollowed) {
  std::filesystem::create_directories(Path("user"));
  Put("others.ini", "[Comm Port]\nCommon Port=7\n");
  std::filesystem::create_symlink("../others.ini", Path("user/MR4500X.ini"));
  const std::string link = Path("user/MR4500X.ini");
  EXPECT_EQ(LoadPortSetting(files, link), 7) << "it is the user's own";
  EXPECT_EQ(SettingsFilePath(files, Path("user"), "/config"), link);
  files.alter = [&](const std::string& path, FileStatus& status) {
    if (path.ends_with("others.ini")) ++status.owner;
  };
  EXPECT_EQ(LoadPortSetting(files, link), 1);
  EXPECT_FALSE(StoreSettings(files, link, 3, ""));
  EXPECT_EQ(Content("others.ini"), "[Comm Port]\nCommon Port=7\n");
  EXPECT_EQ(SettingsFilePath(files, Path("user"), "/config"), "/config/MR4500X.ini");
}

TEST_F(FilesTest, SettingsAreBesideTheProgramIfTheyCanBe) {
  const std::string program = Path("program"), user = Path("user");
  std::filesystem::create_directory(program);
  EXPECT_EQ(SettingsFilePath(files, program, user), program + "/MR4500X.ini");
  const std::string installed = Path("prefix/" MR4500X_PROGRAM_FOLDER);
  std::filesystem::create_directories(installed);
  for (const std::string& folder : {installed, std::string("/usr/bin")}) // also for root, who can write both
    EXPECT_EQ(SettingsFilePath(files, folder, user), user + "/MR4500X.ini") << folder;
  EXPECT_EQ(SettingsFilePath(files, "/usr/local/lib", user).starts_with("/usr/"), files.CanWrite("/usr/local/lib"));
  files.unwritable = {program};
  EXPECT_EQ(SettingsFilePath(files, program, user), user + "/MR4500X.ini");
  std::filesystem::create_directory(user);
  Put("user/MR4500X.ini", "");
  Put("program/MR4500X.ini", "");
  EXPECT_EQ(SettingsFilePath(files, program, user), program + "/MR4500X.ini");
}

} // namespace mr4500x
