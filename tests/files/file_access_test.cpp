#include "file_access.h"

#include <functional>

#include <sys/stat.h>

#include "files_fixture.h"

namespace mr4500x {

namespace {

constexpr char Leftover[] = ".mr4500x-save-0123456789abcdef";

using Save = std::function<bool(FileSystem&)>;

Save SaveText(const std::string& path, const std::string& text, Surplus surplus) {
  return [=](FileSystem& files) {
    return ReplaceFile(files, path, std::vector<std::uint8_t>(text.begin(), text.end()), surplus);
  };
}

unsigned ModeOf(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

} // namespace

class SaveFaults : public FilesTest {
protected:
  // Fails each call of the save in turn, alone or with all that follow as when the program is killed there.
  // "file" must hold the complete old or the complete new content after each.
  void FailEachCall(const Save& save, const std::string& before, const std::string& after, bool killed) {
    int faults = 0;
    for (int call = 1;; ++call) {
      SCOPED_TRACE(testing::Message() << "call " << call << (killed ? " and the following" : ""));
      Put("file", before);
      Put(Leftover, "of a killed save");
      chmod(Path("file").c_str(), 0640);
      FaultyFileSystem faulty;
      faulty.failAt = call;
      faulty.failFromThereOn = killed;
      faulty.mostWritten = 5;
      const bool saved = save(faulty);
      if (faulty.calls < call) break;
      ++faults;
      EXPECT_EQ(Content("file"), saved ? after : before);
      EXPECT_EQ(ModeOf(Path("file")), 0640U);
      if (!killed) {
        auto names = Names();
        names.erase(Leftover);
        EXPECT_EQ(names, (std::set<std::string>{"file", "link"}));
      }
      Put("file", before);
      ASSERT_TRUE(save(files));
      EXPECT_EQ(Names(), (std::set<std::string>{"file", "link"}));
      EXPECT_TRUE(std::filesystem::is_symlink(Path("link")));
    }
    EXPECT_GT(faults, 15);
  }
};

TEST_F(SaveFaults, LeaveTheOldOrTheNewFileAndNoTemporary) {
  std::filesystem::create_symlink("file", Path("link"));
  const Save data = SaveText(Path("link"), "0123456789", Surplus::Keep);
  const Save profile = [&](FileSystem& faulty) { return WriteValue(faulty, Path("link"), "key", "new"); };
  for (const bool killed : {false, true}) {
    FailEachCall(data, "old file with surplus", "0123456789ith surplus", killed);
    FailEachCall(profile, "[S]\nkey=a long old value\n", "[S]\nkey=new\n", killed);
  }
}

TEST_F(FilesTest, SavingKeepsOrDropsTheSurplus) {
  for (const auto& [surplus, content] : {std::pair{Surplus::Keep, "newer"}, std::pair{Surplus::Drop, "new"}}) {
    Put("file", "older");
    EXPECT_TRUE(SaveText(Path("file"), "new", surplus)(files));
    EXPECT_EQ(Content("file"), content);
  }
  const std::string big(100'000, 'x');
  Put("file", "old" + big);
  EXPECT_TRUE(SaveText(Path("file"), "new", Surplus::Keep)(files));
  EXPECT_EQ(Content("file"), "new" + big);
}

TEST_F(FilesTest, SavingFollowsLinksAlsoToWhereNothingIsYet) {
  std::filesystem::create_directory(Path("sub"));
  std::filesystem::create_symlink("sub/second", Path("first"));
  std::filesystem::create_symlink("../target", Path("sub/second"));
  for (const char* text : {"created", "replaced"}) {
    EXPECT_TRUE(SaveText(Path("first"), text, Surplus::Drop)(files));
    EXPECT_EQ(Content("target"), text);
    EXPECT_EQ(Names(), (std::set<std::string>{"first", "sub", "target"}));
  }
}

TEST_F(FilesTest, SavingRefusesWhatIsNoWritableFile) {
  Put("protected", "old");
  chmod(Path("protected").c_str(), 0444); // refused even to the superuser
  Put("foreign", "old");
  files.unwritable = {Path("foreign")};
  std::filesystem::create_directory(Path("folder"));
  mkfifo(Path("pipe").c_str(), 0600);
  std::filesystem::create_symlink("circle", Path("circle"));
  const auto before = Names();
  for (const char* name : {"protected", "foreign", "folder", "pipe", "circle", "none/file", "foreign/file", "new/"})
    EXPECT_FALSE(SaveText(Path(name), "new", Surplus::Drop)(files)) << name;
  EXPECT_FALSE(SaveText("", "new", Surplus::Drop)(files));
  EXPECT_FALSE(SaveText(Path(std::string("cut\0short", 9)), "new", Surplus::Drop)(files));
  EXPECT_EQ(Content("protected") + Content("foreign"), "oldold");
  EXPECT_EQ(Names(), before);
}

TEST_F(FilesTest, SavingRemovesOnlyTemporariesThatNobodyHolds) {
  const std::string held = ".mr4500x-save-fedcba9876543210";
  const std::set<std::string> foreign = {".mr4500x-save-", ".mr4500x-save-notes", std::string(Leftover) + "0",
                                         "file.tmp"};
  for (const std::string& name : foreign)
    Put(name, "mine");
  Put(Leftover, "of a killed save");
  const mode_t mask = umask(027);
  const auto other = files.Create(Path(held), 0600);
  ASSERT_TRUE(other && files.Lock(*other));
  std::filesystem::create_directory(Path(".mr4500x-save-000000000000000f"));
  EXPECT_TRUE(SaveText(Path("file"), "new", Surplus::Drop)(files));
  auto expected = foreign;
  expected.insert({"file", held, ".mr4500x-save-000000000000000f"});
  EXPECT_EQ(Names(), expected);
  EXPECT_EQ(ModeOf(Path("file")), 0640U) << "a new file has the mode that the user's mask leaves";
  files.Close(*other);
  umask(mask);
}

} // namespace mr4500x
