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
  void Prepare(const Scene& scene) {
    std::filesystem::remove(Path("file"));
    if (!scene.before) return;
    Put("file", *scene.before);
    chmod(Path("file").c_str(), 0640);
  }
  std::optional<std::string> File() {
    return std::filesystem::exists(Path("file")) ? std::optional(Content("file")) : std::nullopt;
  }
  // Saves through a link, failing or killed at a call; false when the save has no such call.
  bool SaveWithFault(const Scene& scene, int call, bool killed) {
    FaultyFileSystem faulty;
    faulty.failAt = call;
    faulty.isKilled = killed;
    faulty.mostWritten = 4000;
    if (killed) {
      const pid_t process = fork();
      if (process == 0) _exit(scene.save(faulty, Path("link")) ? 0 : 1);
      int status = 0;
      waitpid(process, &status, 0);
      EXPECT_TRUE(File() == scene.before || File() == scene.after);
      return WIFSIGNALED(status);
    }
    const bool saved = scene.save(faulty, Path("link"));
    EXPECT_EQ(File(), saved ? scene.after : scene.before);
    auto names = Names();
    names.erase(Leftover);
    EXPECT_EQ(names.size(), File() ? 2U : 1U) << "a temporary stays";
    return faulty.calls >= call;
  }
};

TEST_F(SaveSurvival, AnyCallThatFailsOrIsTheLastLeavesTheOldOrTheNewFile) {
  std::filesystem::create_symlink("file", Path("link"));
  for (const Scene& scene : Scenes()) {
    for (const bool killed : {false, true}) {
      int call = 0;
      for (bool goesOn = true; goesOn && !HasFailure();) {
        SCOPED_TRACE(testing::Message() << scene.name << (killed ? ", killed at call " : ", fault at call ") << ++call);
        Prepare(scene);
        Put(Leftover, "of a killed save");
        goesOn = SaveWithFault(scene, call, killed);
        EXPECT_TRUE(!scene.before || ModeOf("file") == 0640);
        Prepare(scene);
        EXPECT_TRUE(scene.save(files, Path("link")));
        EXPECT_EQ(File(), scene.after);
        EXPECT_EQ(Names(), (std::set<std::string>{"file", "link"}));
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

} // namespace mr4500x
