// Saving on a machine that fails for real: a full disk, a folder that can't be written, a process killed with SIGKILL.
#include <csignal>
#include <functional>
#include <optional>

#include <sys/ptrace.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "data_file.h"
#include "files_fixture.h"

namespace mr4500x {

namespace {

using Save = std::function<bool(FileSystem&)>;

RadioImage ImageOf(std::uint8_t byte) {
  RadioImage image;
  image.ChannelBlock.bytes.fill(byte);
  image.FiveToneStandard = byte;
  return image;
}

std::string TextOf(const RadioImage& image) {
  const auto bytes = BuildDataFile(image);
  return {bytes.begin(), bytes.end()};
}

enum class Ended { Killed, Saved, Untraceable };

// Saves in a process of its own, which is killed at its `stop`-th stop: each system call is one where it begins and one
// where it has ended.
Ended SaveAndKill(const Save& save, int stop) {
  const pid_t process = fork();
  if (process == 0) {
    PosixFileSystem files;
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0) raise(SIGSTOP);
    _exit(save(files) ? 0 : 1);
  }
  int status = 0;
  waitpid(process, &status, 0);
  if (!WIFSTOPPED(status)) return Ended::Untraceable;
  for (int i = 0; i < stop && WIFSTOPPED(status); ++i) {
    ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
    waitpid(process, &status, 0);
  }
  if (!WIFSTOPPED(status)) return Ended::Saved;
  kill(process, SIGKILL);
  waitpid(process, &status, 0);
  return Ended::Killed;
}

} // namespace

class SaveSurvival : public FilesTest {
protected:
  void KillEverywhere(const Save& save, const std::optional<std::string>& before, const std::string& after) {
    int kills = 0, killsAfter = 0;
    for (Ended ended = Ended::Killed; ended == Ended::Killed;) {
      SCOPED_TRACE(kills);
      std::filesystem::remove(Path("file"));
      if (before) Put("file", *before);
      ended = SaveAndKill(save, kills + 1);
      if (ended == Ended::Untraceable) GTEST_SKIP() << "this machine lets no process be traced";
      const bool isOld = before ? Content("file") == *before : !std::filesystem::exists(Path("file"));
      ASSERT_TRUE(isOld || Content("file") == after);
      ASSERT_FALSE(isOld && ended == Ended::Saved);
      if (ended == Ended::Killed) ++kills;
      if (ended == Ended::Killed && !isOld) ++killsAfter;
      ASSERT_TRUE(save(files));
      ASSERT_EQ(Content("file"), after);
      ASSERT_EQ(Names(), (std::set<std::string>{"file"}));
    }
    EXPECT_GT(kills - killsAfter, 10);
    EXPECT_GT(killsAfter, 2);
    m_kills += kills;
  }

  int m_kills = 0;
};

TEST_F(SaveSurvival, AProcessKilledAtAnySystemCallLeavesTheOldOrTheNewFile) {
  const std::string older = TextOf(ImageOf(1)), newer = TextOf(ImageOf(2));
  const Save data = [&](FileSystem& fs) { return SaveDataFile(fs, Path("file"), ImageOf(2)); };
  const Save profile = [&](FileSystem& fs) { return WriteValue(fs, Path("file"), "key", "new"); };
  KillEverywhere(data, older, newer);
  KillEverywhere(data, older + "surplus", newer + "surplus");
  KillEverywhere(data, std::nullopt, newer);
  KillEverywhere(profile, "[S]\nkey=a long old value\n", "[S]\nkey=new\n");
  KillEverywhere(profile, std::nullopt, "[S]\nkey=new\n");
  RecordProperty("kills", m_kills);
}

TEST_F(SaveSurvival, ADiskThatIsFullAfterAnyByteLeavesTheOldFile) {
  const std::string older = TextOf(ImageOf(1)) + "surplus", newer = TextOf(ImageOf(2)) + "surplus";
  Put("file", older);
  for (std::size_t room = 0; room < newer.size(); ++room) {
    files.diskRoom = room;
    ASSERT_FALSE(SaveDataFile(files, Path("file"), ImageOf(2))) << room;
    ASSERT_EQ(Content("file"), older) << room;
    ASSERT_EQ(Names(), (std::set<std::string>{"file"})) << room;
  }
  files.diskRoom = newer.size();
  EXPECT_TRUE(SaveDataFile(files, Path("file"), ImageOf(2)));
  EXPECT_EQ(Content("file"), newer);
}

TEST_F(SaveSurvival, AFolderThatCannotBeWrittenIsLeftAsItIs) {
  constexpr uid_t somebody = 65534; // the superuser may write everywhere
  std::filesystem::create_directory(Path("sub"));
  Put("sub/file", "old");
  chmod(Path("sub/file").c_str(), 0666);
  chmod(Path("sub").c_str(), 0555);
  chmod(Path(".").c_str(), 0755);
  const bool isSuperuser = geteuid() == 0;
  if (isSuperuser) {
    ASSERT_EQ(seteuid(somebody), 0);
  }
  const bool replaced = SaveDataFile(files, Path("sub/file"), ImageOf(2));
  const bool created = SaveDataFile(files, Path("sub/new"), ImageOf(2));
  if (isSuperuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  EXPECT_FALSE(replaced || created);
  EXPECT_EQ(Content("sub/file"), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Path("sub")), {}), 1);
  chmod(Path("sub").c_str(), 0755);
}

} // namespace mr4500x
