#include <regex>

#include "conventions.h"
#include "files_fixture.h"
#include "rows.h"

namespace mr4500x {

namespace {
std::string WithUnixLineEnds(const std::string& text) {
  return std::regex_replace(text, std::regex(std::string(LineEnd)), "\n");
}
} // namespace

TEST(IniText, ValuesAreFoundAsOnThePlatform) {
  const std::string text =
      "\xEF\xBB\xBF[ First ]\r\n; a=comment\r\na = one two \t\r\nB=\"  quoted \"\r\nc='x'\na=again\n"
      "\tlone=\"\nempty =\nno equals sign\npath=/a=b/c;d\n"
      "[SECOND] ; trailing\na=2\nmixed=\"x'\n[first]\nlate=1";
  for (const Row& row : RowsOf(CASES "ini_values.txt", "(.*) [+] (.*) -> (.*)"))
    EXPECT_EQ(FindIniValue(text, row[1], row[2]).value_or("nothing"), row[3]) << row[0];
}

TEST(IniText, SettingAValueLeavesEveryOtherLineUnchanged) {
  for (const Row& row : RowsOf(CASES "ini_changes.txt", "[^:]+: (.*) [+] (.*) [+] (.*) -> (.*)")) {
    std::string text = Unescaped(row[1]);
    EXPECT_TRUE(SetIniValue(text, "S", row[2], Unescaped(row[3]))) << row[0];
    // A text without a line end gets the system's.
    const bool hasLineEnd = row[1].find("\\n") != std::string::npos;
    EXPECT_EQ(hasLineEnd ? text : WithUnixLineEnds(text), Unescaped(row[4])) << row[0];
  }
  std::string text = "[S]\n";
  for (const auto& [section, key] :
       {std::pair{"S", "a=b"}, {"S", "a\nb"}, {"S", " ;a"}, {"S", "[a]"}, {"S", ""}, {"S]", "a"}, {"S\n", "a"}})
    EXPECT_FALSE(SetIniValue(text, section, key, "v")) << section << ' ' << key;
  EXPECT_EQ(text, "[S]\n");
}

TEST_F(FilesTest, ProfilesAreCreatedAndTheirLongestValueHas255Characters) {
  const std::string file = Path("new/folder/a.ini"), longest = std::string(254, 'x') + "\xC3\xA4";
  files.alter = [](const std::string& path,
                   FileStatus& status) { // another program makes the same folders, and adds text
    status.size = 0;
    if (status.kind == FileKind::Missing && !path.ends_with(".ini")) std::filesystem::create_directories(path);
  };
  EXPECT_TRUE(WriteValue(files, file, "k", "v") && WriteValue(files, file, "k", "v"));
  EXPECT_EQ(WithUnixLineEnds(Content("new/folder/a.ini")), "[S]\nk=v\n");
  EXPECT_TRUE(WriteValue(files, file, "longest", longest) && WriteValue(files, file, "too long", longest + "x"));
  const std::string text = ProfileText(files, file);
  EXPECT_EQ(ProfileString(text, "S", "longest", ""), longest);
  for (const char* const key : {"too long", "none"})
    EXPECT_EQ(ProfileString(text, "S", key, "default"), "default") << key;
}

TEST_F(FilesTest, ProfilesThatCannotBeReadAreNotOverwritten) {
  const std::string tooLong = "[S]\nk=1\n" + std::string(ProfileFileLimit, ';');
  Put("long.ini", tooLong);
  for (const char* name : {"long.ini", ""}) { // "" is the folder
    EXPECT_EQ(ProfileString(ProfileText(files, Path(name)), "S", "k", "default"), "default") << name;
    EXPECT_FALSE(WriteValue(files, Path(name), "k", "2")) << name;
  }
  EXPECT_EQ(Content("long.ini"), tooLong);
}

} // namespace mr4500x
