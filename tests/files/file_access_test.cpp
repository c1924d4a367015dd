#include "file_access.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "files_fixture.h"

namespace mr4500x {

namespace {

bool SaveNew(FileSystem& files, const std::string& path) {
  return ReplaceFile(files, path, std::vector<std::uint8_t>{'n', 'e', 'w'}, Surplus::Drop);
}

} // namespace

TEST_F(FilesTest, SavingRefusesWhatIsNotAWritableFile) {
  Put("protected", "old");
  chmod(Path("protected").c_str(), 0444); // refused even to the superuser
  Put("foreign", "old");
  files.unwritable = {Path("foreign"), Path("folder/foreign")};
  Put("plain", "old");
  std::filesystem::create_directories(Path("folder/foreign"));
  std::filesystem::create_symlink("folder", Path("linked"));
  mkfifo(Path("pipe").c_str(), 0600);
  std::filesystem::create_symlink("circle", Path("circle"));
  std::filesystem::create_symlink("none/file", Path("link"));
  const auto before = Names();
  for (const char* name :
       {"protected", "foreign", "folder", "pipe", "circle", "link", "none/file", "foreign/file", "new/", "plain/file"})
    EXPECT_FALSE(SaveNew(files, Path(name)) || MayReplace(files, Path(name))) << name;
  for (const char* name : {"folder", "linked", "none", "none/new/", "linked/none"})
    EXPECT_TRUE(MayStoreIn(files, Path(name))) << name;
  for (const char* name : {"plain", "plain/new", "pipe", "circle", "link", "link/new", "folder/foreign/new"})
    EXPECT_FALSE(MayStoreIn(files, Path(name))) << name;
  EXPECT_FALSE(SaveNew(files, "") || SaveNew(files, Path(std::string("cut\0short", 9))));
  EXPECT_EQ(Content("protected") + Content("foreign"), "oldold");
  EXPECT_EQ(Names(), before);
  // What has been written is counted, and it may be less than was given.
  const auto reader = files.OpenToRead(Path("pipe")), writer = files.OpenToWrite(Path("pipe"), 0600);
  const std::vector<std::uint8_t> more(1'000'000); // than a pipe holds
  fcntl(*writer, F_SETFL, O_NONBLOCK);
  EXPECT_LT(files.Write(*writer, more).value(), more.size());
  for (const auto& pipe : {reader, writer})
    files.Close(*pipe);
}

TEST_F(FilesTest, SavingRemovesOnlyTemporariesThatAreNotLocked) {
  const std::string prefix = ".mr4500x-save-", held = prefix + "fedcba9876543210", folder = prefix + "000000000000000f";
  std::set<std::string> expected = {prefix, prefix + "notes", Leftover + "0", "file.tmp", Leftover};
  for (const std::string& name : expected)
    Put(name, "mine");
  expected.erase(Leftover);
  expected.insert({"file", held, folder});
  const mode_t mask = umask(027);
  const auto other = files.Create(Path(held), 0600);
  ASSERT_TRUE(other && files.Lock(*other) == LockOutcome::Taken);
  std::filesystem::create_directory(Path(folder));
  EXPECT_TRUE(SaveNew(files, Path("file")));
  EXPECT_EQ(Names(), expected);
  EXPECT_EQ(ModeOf("file"), 0640U) << "as the mask leaves";
  files.Close(*other);
  umask(mask);
}

} // namespace mr4500x
