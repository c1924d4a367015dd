// The contract of every system's files with the layers above, and saves that are killed at any call.
#include <cstdlib>
#include <list>

#include "conventions.h"
#include "data_file.h"
#include "file_access.h"
#include "files_fixture.h"

namespace mr4500x {
namespace {

using Bytes = std::vector<std::uint8_t>;

class FileSystemTest : public FilesTest {
protected:
  FileSystem& machine = MachineFiles();

  [[nodiscard]] FileKind KindOf(const std::string& name) { return machine.Status(Path(name)).value().kind; }
};

TEST_F(FileSystemTest, MakesReadsListsAndRemovesFilesOfAnyName) {
  const std::string longName(200, 'n');
  for (const std::string& name :
       {std::string("plain"), std::string("with blank"), std::string("\u00e4\u20ac\u4e2d"), longName}) {
    SCOPED_TRACE(name);
    const std::string folder = Path(name), path = folder + Separator + longName; // longer than 260 together
    EXPECT_EQ(KindOf(name), FileKind::Missing);
    ASSERT_TRUE(machine.MakeFolder(folder));
    EXPECT_FALSE(machine.MakeFolder(folder));
    EXPECT_EQ(KindOf(name), FileKind::Folder);
    EXPECT_TRUE(machine.CanWrite(folder));
    const auto made = machine.Create(path, 0600);
    ASSERT_TRUE(made);
    EXPECT_FALSE(machine.Create(path, 0600)) << "a second time";
    EXPECT_EQ(machine.Write(*made, Bytes{1, 2, 3}), 3U);
    EXPECT_TRUE(machine.Sync(*made));
    machine.Close(*made);
    const auto status = machine.Status(path).value();
    EXPECT_EQ(status.kind, FileKind::Regular);
    EXPECT_EQ(status.size, 3U);
    EXPECT_NE(status.number, 0U);
    const auto read = machine.OpenToRead(path);
    Bytes bytes(9);
    EXPECT_EQ(machine.ReadAt(*read, 1, bytes), 2U);
    EXPECT_EQ(bytes[0], 2);
    EXPECT_EQ(machine.ReadAt(*read, 3, bytes), 0U) << "at the end";
    machine.Close(*read);
    auto names = machine.List(folder).value();
    std::erase_if(names, [](const std::string& each) { return each == "." || each == ".."; });
    EXPECT_EQ(names, std::vector{longName});
    EXPECT_TRUE(machine.Remove(path));
    EXPECT_EQ(machine.Status(path).value().kind, FileKind::Missing);
    EXPECT_FALSE(machine.OpenToRead(path));
  }
}

TEST_F(FileSystemTest, ReplacesAFileInOneStepWhileTheNewOneIsOpen) {
  Put("old", "old");
  Put("new", "new");
  const auto writer = machine.OpenToWrite(Path("new"), 0600);
  EXPECT_TRUE(machine.SetSize(*writer, 2));
  EXPECT_TRUE(machine.Rename(Path("new"), Path("old")));
  EXPECT_EQ(Content("old"), "ne");
  machine.Close(*writer);
  EXPECT_EQ(KindOf("new"), FileKind::Missing);
  EXPECT_FALSE(machine.Rename(Path("new"), Path("old")));
  EXPECT_EQ(Content("old"), "ne");
  // A reader keeps the old content; or nothing takes its place, not even in part.
  const auto reader = machine.OpenToRead(Path("old"));
  if (const FileResult saved = SaveDataFile(machine, Path("old"), RadioImage()); !saved) {
    EXPECT_EQ(saved.error, std::errc::text_file_busy) << saved.Reason();
    EXPECT_EQ(Content("old"), "ne");
  }
  Bytes bytes(3);
  EXPECT_EQ(machine.ReadAt(*reader, 0, bytes), 2U);
  EXPECT_EQ(bytes[0], 'n');
  machine.Close(*reader);
}

// A system whose drives have names takes a name after a colon for a part of a file. The folder does not show that part.
TEST_F(FileSystemTest, SavesNothingThatTheFolderDoesNotShow) {
  const bool hasDrives = Separator == '\\';
  Put("old", "old");
  for (const char* name : {"12:30.K4X", "old:x", "old::$DATA", "o:x"}) {
    const FileResult saved = SaveDataFile(machine, Path(name), RadioImage());
    EXPECT_EQ(saved.error == std::errc::invalid_argument, hasDrives) << name << ": " << saved.Reason();
  }
  EXPECT_EQ(Content("old"), "old");
}

TEST_F(FileSystemTest, LocksAFileOnceAndLetsOthersReadIt) {
  Put("file", "text");
  const auto first = machine.OpenToWrite(Path("file"), 0600), second = machine.OpenToRead(Path("file"));
  EXPECT_EQ(machine.Lock(*first), LockOutcome::Taken);
  EXPECT_EQ(machine.Lock(*second), LockOutcome::HeldByOther);
  Bytes bytes(4);
  EXPECT_EQ(machine.ReadAt(*second, 0, bytes), 4U);
  machine.Close(*first);
  EXPECT_EQ(machine.Lock(*second), LockOutcome::Taken);
  machine.Close(*second);
}

TEST_F(FileSystemTest, ALockForChangeIsHeldWhileTheFileIsReplaced) {
  Put("file", "old");
  const auto names = Names();
  const auto refuse = [] { return false; };
  {
    const auto lock = LockForChange(machine, Path("file"), refuse);
    ASSERT_TRUE(lock && *lock);
    EXPECT_FALSE(LockForChange(machine, Path("file"), refuse));
    EXPECT_TRUE(SaveDataFile(machine, Path("file"), RadioImage()));
    EXPECT_NE(Content("file"), "old");
  }
  EXPECT_EQ(Names(), names) << "the lock leaves a file";
  const auto next = LockForChange(machine, Path("file"), refuse);
  EXPECT_TRUE(next && *next);
}

constexpr char KilledCall[] = "MR4500X_TEST_KILLED_CALL", KilledPath[] = "MR4500X_TEST_KILLED_PATH";

// In a process of its own, which the other test starts.
TEST(KilledSave, SavesUntilACall) {
  const char *const path = std::getenv(KilledPath), *const call = std::getenv(KilledCall);
  if (path == nullptr || call == nullptr || *path == 0) return;
  FaultyFileSystem files;
  files.failAt = std::atoi(call);
  files.isKilled = true;
  EXPECT_TRUE(SaveDataFile(files, path, RadioImage()));
}

TEST_F(FileSystemTest, ASaveThatIsKilledAtAnyCallLeavesTheOldOrTheNewFile) {
  const std::string path = Path("file");
  ASSERT_TRUE(SaveDataFile(machine, Path("whole"), RadioImage()));
  static std::list<std::string> variables; // the environment refers to them until the program ends
  const auto set = [](const std::string& name, const std::string& value) {
    putenv(variables.emplace_back(name + '=' + value).data());
  };
  set(KilledPath, path);
  int call = 0, killed = 0;
  do {
    Put("file", "the old file");
    set(KilledCall, std::to_string(++call));
    const std::string command = testing::internal::GetArgvs().front() + " --gtest_filter=KilledSave.* > " + Path("log");
    killed = std::system(command.c_str());
    EXPECT_TRUE(Content("file") == "the old file" || Content("file") == Content("whole")) << "killed at call " << call;
  } while (killed != 0 && call < 100);
  EXPECT_EQ(Content("file"), Content("whole"));
  EXPECT_GT(call, 5);
  EXPECT_EQ(Names(), (std::set<std::string>{"file", "log", "whole"})) << "leftovers stay";
  set(KilledPath, "");
}

} // namespace
} // namespace mr4500x
