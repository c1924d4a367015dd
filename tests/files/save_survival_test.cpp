// Saves that fail at any call or byte, or are killed at any call: the old or the complete new file is left.
#include <functional>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "data_file.h"
#include "files_fixture.h"

namespace mr4500x {

namespace {

RadioImage ImageOf(std::uint8_t byte) {
  RadioImage image;
  image.ChannelBlock.bytes.fill(byte);
  return image;
}

std::string TextOf(const RadioImage& image) {
  const auto bytes = BuildDataFile(image);
  return {bytes.begin(), bytes.end()};
}

struct Scene {
  const char* name;
  std::function<bool(FileSystem&, const std::string& path)> save;
  std::optional<std::string> before;
  std::string after;
};

std::vector<Scene> Scenes() {
  const auto data = [](FileSystem& files, const std::string& path) { return SaveDataFile(files, path, ImageOf(2)); };
  const auto value = [](FileSystem& files, const std::string& path) { return WriteValue(files, path, "key", "new"); };
  const std::string older = TextOf(ImageOf(1)), newer = TextOf(ImageOf(2)), surplus(40'000, 'x');
  return {{"data file with surplus", data, older + surplus, newer + surplus},
          {"new data file", data, std::nullopt, newer},
          {"settings", value, "[S]\nkey=a long old value\n", "[S]\nkey=new\n"},
          {"new settings", value, std::nullopt, "[S]\nkey=new\n"}};
}

} // namespace

class SaveSurvival : public FilesTest {
protected:
  SaveSurvival() : FilesTest("/dev/shm") {} // no disk to wait for
  void Prepare(const Scene& scene) {
    std::filesystem::remove(Path("file"));
    if (!scene.before) return;
    Put("file", *scene.before);
    chmod(Path("file").c_str(), 0640);
    static_cast<void>(!chown(Path("file").c_str(), static_cast<uid_t>(-1), 4711)); // if the user may
  }
  std::optional<std::string> File() {
    return std::filesystem::exists(Path("file")) ? std::optional(Content("file")) : std::nullopt;
  }
  // Saves through a link, failing or killed at a call; false when the save makes fewer calls.
  bool SaveWithFault(const Scene& scene, int call, bool killed) {
    FaultyFileSystem faulty;
    faulty.failAt = call;
    faulty.isKilled = killed;
    faulty.mostWritten = 4000;
    if (killed) {
      const pid_t process = fork();
      if (process == 0) _exit(scene.save(faulty, Path("away/link")) ? 0 : 1);
      int status = 0;
      waitpid(process, &status, 0);
      EXPECT_TRUE(File() == scene.before || File() == scene.after);
      return WEXITSTATUS(status) == FaultyFileSystem::Killed;
    }
    const bool saved = scene.save(faulty, Path("away/link"));
    EXPECT_EQ(File(), saved ? scene.after : scene.before);
    auto names = Names();
    names.erase(Leftover);
    EXPECT_EQ(names.size(), File() ? 2U : 1U) << "a temporary stays";
    return faulty.calls >= call;
  }
};

TEST_F(SaveSurvival, AnyCallThatFailsOrIsTheLastLeavesTheOldOrTheNewFile) {
  std::filesystem::create_directory(Path("away"));
  std::filesystem::create_symlink("../file", Path("away/link"));
  for (const Scene& scene : Scenes()) {
    for (const bool killed : {false, true}) {
      int call = 0;
      for (bool goesOn = true; goesOn && !HasFailure();) {
        SCOPED_TRACE(testing::Message() << scene.name << (killed ? ", killed at call " : ", fault at call ") << ++call);
        Prepare(scene);
        const auto groupOf = [&] { return files.Status(Path("file"))->group; };
        const std::uint32_t group = groupOf();
        Put(Leftover, "of a killed save");
        goesOn = SaveWithFault(scene, call, killed);
        EXPECT_TRUE(!scene.before || groupOf() == group);
        EXPECT_TRUE(!scene.before || ModeOf("file") == 0640);
        Prepare(scene);
        EXPECT_TRUE(scene.save(files, Path("away/link")));
        EXPECT_EQ(files.unsyncedFolder, "");
        EXPECT_EQ(File(), scene.after);
        EXPECT_EQ(Names(), (std::set<std::string>{"away", "file"}));
      }
      EXPECT_GT(call, 8) << scene.name;
    }
  }
}

TEST_F(SaveSurvival, ADiskThatIsFullAfterAnyByteLeavesTheOldFile) {
  const Scene scene{"", {}, TextOf(ImageOf(1)) + "surplus", TextOf(ImageOf(2)) + "surplus"};
  Put("file", *scene.before);
  for (std::size_t room = 0; room <= scene.after.size(); ++room) {
    files.diskRoom = room;
    const bool isEnough = room == scene.after.size();
    ASSERT_EQ(SaveDataFile(files, Path("file"), ImageOf(2)), isEnough) << room;
    ASSERT_EQ(File(), isEnough ? scene.after : scene.before) << room;
    ASSERT_EQ(Names(), std::set<std::string>{"file"}) << room;
  }
}

TEST_F(SaveSurvival, AFileThatCanBeWrittenIsSavedInPlaceWhereNoNewOneCanTakeItsPlace) {
  const std::pair<const char*, bool FaultyFileSystem::*> shares[] = {{"no chmod", &FaultyFileSystem::hasModes},
                                                                     {"no new files", &FaultyFileSystem::canCreate},
                                                                     {"no renaming", &FaultyFileSystem::canRename}};
  std::filesystem::create_directory(Path("away"));
  std::filesystem::create_symlink("../file", Path("away/link"));
  for (const auto& [share, ability] : shares)
    for (const Scene& scene : Scenes()) {
      int call = 0;
      for (bool goesOn = true; goesOn && !HasFailure();) { // each further call fails
        SCOPED_TRACE(testing::Message() << share << ", " << scene.name << ", fault at call " << ++call);
        Prepare(scene);
        std::filesystem::remove(Path("same"));
        if (scene.before) std::filesystem::create_hard_link(Path("file"), Path("same"));
        FaultyFileSystem faulty;
        faulty.*ability = false;
        faulty.failAt = call;
        const bool saved = scene.save(faulty, Path("away/link"));
        goesOn = faulty.calls >= call;
        EXPECT_TRUE(saved ? File() == scene.after && faulty.IsSynced() : goesOn && !scene.before == !File());
        EXPECT_TRUE(!saved || !scene.before || Content("same") == scene.after) << "it is another file";
        Prepare(scene);
        EXPECT_TRUE(scene.save(files, Path("away/link")));
        EXPECT_EQ(Names().size(), scene.before ? 3U : 2U) << "a temporary stays";
      }
    }
}

// Another save comes between the making of a temporary and its lock.
TEST_F(SaveSurvival, MistakesNoOtherTemporaryForALeftover) {
  files.beforeLock = [&](FileSystem::Handle) {
    FaultyFileSystem other;
    EXPECT_TRUE(SaveDataFile(other, Path("other"), ImageOf(2)));
  };
  EXPECT_TRUE(SaveDataFile(files, Path("cleared"), ImageOf(1)));
  std::optional<FileSystem::Handle> cleaner;
  std::string taken;
  files.beforeLock = [&](FileSystem::Handle) {
    for (const std::string& name : Names())
      if (name.starts_with(".mr4500x-save-")) taken = Path(name);
    cleaner = files.OpenToRead(taken);
    EXPECT_EQ(files.Lock(cleaner.value()), LockOutcome::Taken);
    files.beforeSync = [&] { std::filesystem::remove(taken); };
  };
  EXPECT_TRUE(SaveDataFile(files, Path("held"), ImageOf(1)));
  files.Close(cleaner.value());
  EXPECT_EQ(files.writtenInPlace, 0) << "the temporary is lost";
  EXPECT_EQ(Names(), (std::set<std::string>{"cleared", "held", "other"}));
}

TEST_F(SaveSurvival, ManyAtTheSameTimeAllSucceed) {
  std::vector<pid_t> processes;
  for (std::uint8_t i = 0; i < 8; ++i) {
    processes.push_back(fork());
    if (processes.back() != 0) continue;
    bool saved = true;
    for (int save = 0; save < 10; ++save)
      saved &= SaveDataFile(files, Path(std::to_string(i % 6)), ImageOf(i)); // two of them have two writers
    _exit(saved && files.writtenInPlace == 0 ? 0 : 1);
  }
  for (const pid_t process : processes) {
    int status = -1;
    waitpid(process, &status, 0);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(Names(), (std::set<std::string>{"0", "1", "2", "3", "4", "5"}));
}

} // namespace mr4500x
