
#include "files_fixture.h"

namespace mr4500x {

TEST(IniText, ValuesAreFoundAsThePlatformWould) {
  const std::string text =
      "\xEF\xBB\xBF[ First ]\r\n; a=comment\r\na = one two \t\r\nB=\"  quoted \"\r\nc='x'\na=again\n"
      "\tlone=\"\nempty =\nno equals sign\npath=/a=b/c;d\n"
      "[SECOND] ; trailing\na=2\nmixed=\"x'\n[first]\nlate=1";
  const struct {
    const char *section, *key;
    std::optional<std::string_view> expected;
  } cases[] = {
      {"first", "A", "one two"},     {"FIRST", "b", "  quoted "},    {"First", "c", "x"},
      {"first", "lone", "\""},       {"first", "empty", ""},         {"first", "late", "1"},
      {"first", "path", "/a=b/c;d"}, {"Second", "a", "2"},           {"second", "mixed", "\"x'"},
      {"second", "b", std::nullopt}, {"first", "; a", std::nullopt}, {"first", "no equals sign", std::nullopt},
      {"third", "a", std::nullopt},
  };
  for (const auto& [section, key, expected] : cases)
    EXPECT_EQ(FindIniValue(text, section, key), expected) << section << ' ' << key;
}

TEST(IniText, SettingAValueLeavesEveryOtherLineAsItWas) {
  const struct {
    const char *before, *key, *value, *after; // in section "S"
  } cases[] = {
      {"", "k", "v", "[S]\nk=v\n"},
      {"\xEF\xBB\xBF", "k", "v", "\xEF\xBB\xBF[S]\nk=v\n"},
      {"; c\r\n\r\n[s]\r\n  Key =  old \t\r\nl=1\r\n", "kEY", "v", "; c\r\n\r\n[s]\r\n  Key =  v\r\nl=1\r\n"},
      {"[S]\nk=old", "k", "v", "[S]\nk=v"},
      {"[S]\nk=\n\n", "k", "", "[S]\nk=\n\n"},
      {"[S]\nj=1", "k", "v", "[S]\nj=1\nk=v\n"},
      {"[S]\r\nj=1\r\n\r\n \t\r\n[T]\r\nk=1\r\n", "k", "v", "[S]\r\nj=1\r\nk=v\r\n\r\n \t\r\n[T]\r\nk=1\r\n"},
      {"[S]\n[T]\n[s]\nk=1\n", "k", "v", "[S]\n[T]\n[s]\nk=v\n"},
      {"[S]\n[T]\n[s]\nj=1\n", "k", "v", "[S]\nk=v\n[T]\n[s]\nj=1\n"},
      {"[T]\r\nk=1", "k", "v", "[T]\r\nk=1\r\n[S]\r\nk=v\r\n"},
      {"[S]\n", "k", "a\r\n[T]\nk=b", "[S]\nk=a  [T] k=b\n"},
      {"[S]\n", "k", " blank", "[S]\nk=\" blank\"\n"},
      {"[S]\n", "k", "'q'", "[S]\nk=\"'q'\"\n"},
  };
  for (const auto& [before, key, value, after] : cases) {
    std::string text = before;
    EXPECT_TRUE(SetIniValue(text, "S", key, value)) << before << key;
    EXPECT_EQ(text, after) << before << key;
  }
  std::string text = "[S]\n";
  for (const auto& [section, key] :
       {std::pair{"S", "a=b"}, {"S", "a\nb"}, {"S", ";a"}, {"S", "[a]"}, {"S", ""}, {"S]", "a"}, {"S\n", "a"}})
    EXPECT_FALSE(SetIniValue(text, section, key, "v")) << section << ' ' << key;
  EXPECT_EQ(text, "[S]\n");
}

TEST_F(FilesTest, ProfilesAreCreatedAndTheirLongestValueHas255Characters) {
  const std::string file = Path("new/folder/a.ini"), longest = std::string(254, 'x') + "\xC3\xA4";
  EXPECT_TRUE(WriteValue(files, file, "k", "v"));
  EXPECT_EQ(Content("new/folder/a.ini"), "[S]\nk=v\n");
  EXPECT_TRUE(WriteValue(files, file, "longest", longest) && WriteValue(files, file, "too long", longest + "x"));
  const std::string text = ProfileText(files, file);
  EXPECT_EQ(ProfileString(text, "S", "longest", ""), longest);
  for (const char* const key : {"too long", "none"})
    EXPECT_EQ(ProfileString(text, "S", key, "default"), "default") << key;
}

TEST_F(FilesTest, ProfilesThatCannotBeReadAreNotOverwritten) {
  const std::string tooLong = "[S]\nk=1\n" + std::string(ProfileFileLimit, ';');
  Put("long.ini", tooLong);
  for (const char* name : {"long.ini", ""}) { // and a folder
    EXPECT_EQ(ProfileString(ProfileText(files, Path(name)), "S", "k", "default"), "default") << name;
    EXPECT_FALSE(WriteValue(files, Path(name), "k", "2")) << name;
  }
  EXPECT_EQ(Content("long.ini"), tooLong);
}

} // namespace mr4500x
