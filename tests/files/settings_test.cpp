#include "settings.h"

#include "files_fixture.h"
#include "recent_files.h"

namespace mr4500x {

// In the lists "-" is a slot that has no key yet.
TEST_F(FilesTest, RecentFilesShiftSlotBySlot) {
  using Slots = std::array<const char*, 4>;
  const struct {
    Slots before;
    bool add;
    const char* path;
    Slots after;
  } cases[] = {
      {{"-", "-", "-", "-"}, true, "a", {"a", "-", "-", "-"}},
      {{"a", "b", "c", "d"}, true, "e", {"e", "a", "b", "c"}},
      {{"a", "b", "c", "d"}, true, "d", {"d", "a", "b", "c"}},
      {{"a", "b", "c", "d"}, true, " A ", {" A ", "b", "c", "d"}},
      {{"a", "\xC3\x84\xD0\x96/B", "c", "d"}, true, " \xC3\xA4\xD0\xB6/b", {" \xC3\xA4\xD0\xB6/b", "a", "c", "d"}},
      {{"a", "\xC3\x84", "", ""}, true, "\xC3", {"\xC3", "a", "\xC3\x84", ""}}, // half a character
      {{"a", "", "c", "d"}, true, "e", {"e", "a", "c", "c"}},                   // the gap leaves slot 3 as it was
      {{"a", "b", "a", "d"}, true, "a", {"a", "a", "b", "d"}},                  // the highest match counts
      {{"", "No File", "c", ""}, true, "c", {"c", "No File", "c", ""}},
      {{"a", "b", "c", "d"}, false, "B ", {"a", "c", "d", ""}},
      {{"a", "b", "", "d"}, false, "a", {"b", "", "", ""}}, // what lies behind a gap is lost
      {{"a", "-", "-", "-"}, false, "a", {"", "", "", ""}},
      {{"a", "b", "-", "-"}, false, "e", {"a", "b", "-", "-"}},
  };
  const auto text = [](const Slots& slots) {
    std::string lines = "[Recent Files]\n";
    for (std::size_t i = 0; i < slots.size(); ++i) {
      const std::string value = slots[i];
      const bool isQuoted = value.starts_with(' ');
      if (value == "-") continue;
      lines += "RecentFile" + std::to_string(i + 1) + '=' + (isQuoted ? '"' + value + '"' : value) + '\n';
    }
    return lines;
  };
  for (const auto& [before, add, path, after] : cases) {
    Put("MR4500X.ini", text(before));
    EXPECT_TRUE((add ? AddRecent : RemoveRecent)(files, Path("MR4500X.ini"), path));
    EXPECT_EQ(Content("MR4500X.ini"), text(after)) << text(before) << (add ? "+ " : "- ") << path;
  }
  Put("MR4500X.ini", text({"/data/a.K4X", "", "No File", "-"}));
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

TEST_F(FilesTest, SettingsLiveBesideTheProgramWhereTheyCan) {
  const std::string program = Path("program"), user = Path("user");
  std::filesystem::create_directory(program);
  EXPECT_EQ(SettingsFilePath(files, program, user), program + "/MR4500X.ini");
  const std::string installed = Path("prefix/" MR4500X_PROGRAM_FOLDER);
  std::filesystem::create_directories(installed);
  for (const std::string& folder : {installed, std::string("/usr/bin")}) // also for root, who can write both
    EXPECT_EQ(SettingsFilePath(files, folder, user), user + "/MR4500X.ini") << folder;
  files.unwritable = {program};
  EXPECT_EQ(SettingsFilePath(files, program, user), user + "/MR4500X.ini");
  std::filesystem::create_directory(user);
  Put("user/MR4500X.ini", "");
  Put("program/MR4500X.ini", "");
  EXPECT_EQ(SettingsFilePath(files, program, user), program + "/MR4500X.ini");
}

} // namespace mr4500x
