// The companion against the simulated radio, both as processes, over a real serial device.
#include "data_file.h"
#include "posix_file_system.h"
#include "radio_memory.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace mr4500x {
namespace {

struct Ended {
  int status;
  std::string output; // standard output and standard error
};

Ended Shell(const std::string& command) {
  FILE* const pipe = popen((command + " 2>&1 </dev/null").c_str(), "r");
  Ended ended{-1, {}};
  std::array<char, 4096> buffer{};
  for (std::size_t n = 0; pipe != nullptr && (n = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    ended.output.append(buffer.data(), n);
  }
  const int status = pclose(pipe);
  if (WIFEXITED(status)) ended.status = WEXITSTATUS(status);
  return ended;
}

class CompanionTest : public testing::Test {
protected:
  void SetUp() override {
    std::string pattern = std::filesystem::temp_directory_path() / "mr4500x-cli-XXXXXX";
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    folder = pattern;
  }
  void TearDown() override {
    if (m_simulator > 0) {
      kill(m_simulator, SIGTERM);
      waitpid(m_simulator, nullptr, 0);
    }
    std::filesystem::remove_all(folder);
  }

  // Starts a radio and waits for the line in which it names its device.
  void StartRadio(const std::string& faults = "") {
    const std::string command = "exec " LR7200_SIMULATOR " --memory " + folder + "/memory " + faults;
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    m_simulator = fork();
    if (m_simulator == 0) {
      dup2(ends[1], STDOUT_FILENO);
      close(ends[0]);
      execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
      _exit(127);
    }
    close(ends[1]);
    for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';) {
      port += c;
    }
    close(ends[0]);
    ASSERT_FALSE(port.empty());
  }

  Ended Cli(const std::string& arguments) { return Shell(MR4500X_CLI " " + arguments); }

  std::string folder;
  std::string port;

private:
  pid_t m_simulator = -1;
};

TEST_F(CompanionTest, TheTypicalJob) {
  StartRadio();
  const std::string file = folder + "/radio.K4X";
  Ended ended = Cli("read " + port + " " + file);
  EXPECT_EQ(ended.status, 0) << ended.output;
  EXPECT_EQ(ended.output, "");
  PosixFileSystem files;
  RadioImage image;
  ASSERT_EQ(LoadDataFile(files, file, image).outcome, LoadOutcome::Loaded);
  const RadioMemory memory = FactoryMemory();
  for (const BlockPlace& place : RecordMap) {
    const bool inFile = place.block != ImageBlock::RadioIdBlock && place.block != ImageBlock::WriteStampBlock &&
                        place.block != ImageBlock::EmbeddedInfoBlock && place.block != ImageBlock::FirmwareVersionBlock;
    const auto block = BlockBytes(image, place.block);
    if (!inFile) continue;
    EXPECT_TRUE(std::equal(block.begin(), block.end(), memory.begin() + place.address)) << place.address;
  }
  EXPECT_EQ(image.FiveToneStandard, image.ResetTimeBlock[2]);

  image.RadioSettingsBlock[4] = 100;
  ASSERT_TRUE(SaveDataFile(files, file, image));
  ended = Cli("write " + file + " " + port);
  EXPECT_EQ(ended.status, 0) << ended.output;
  ended = Cli("info write " + port + " 'two\nlines'");
  EXPECT_EQ(ended.status, 0) << ended.output;
  ended = Cli("info read " + port);
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output.substr(0, 12), "two\nlines\n20") << ended.output;
  ended = Cli("read " + port + " " + file);
  EXPECT_EQ(ended.status, 0) << ended.output;
  ASSERT_EQ(LoadDataFile(files, file, image).outcome, LoadOutcome::Loaded);
  EXPECT_EQ(image.RadioSettingsBlock[4], 100);
}

struct FaultCase {
  const char* fault;
  const char* command; // FILE and PORT stand for themselves
  const char* message; // PORT likewise
};

TEST_F(CompanionTest, FailuresHaveTheirMessageAndLeaveTheFile) {
  const FaultCase cases[] = {
      {"short-reply", "read PORT FILE", "Reading is interrupted, please retry Read.\n"},
      {"wrong-answer", "read PORT FILE", "PORT port don't respond, please check your connection!\n"},
      {"wrong-model", "write FILE PORT",
       "The radio model is wrong. The connected radio doesn't belong to LR7200 Series. Can't continue!\n"},
      {"other-band", "write FILE PORT",
       "The frequency band is different from the destination radio model.Are you still continue?\n"},
      {"ng", "write FILE PORT", "Writing data error, please retry Write.\n"},
      {"vanish", "read PORT FILE", "Read data error, please retry Read.\n"},
  };
  for (const FaultCase& c : cases) {
    SetUp();
    port.clear();
    StartRadio(std::string("--fault ") + c.fault);
    const std::string file = folder + "/kept.K4X";
    ASSERT_EQ(Cli("new " + file).status, 0);
    const auto filled = [&](std::string text) {
      for (const auto& [name, value] : {std::pair("PORT", port), std::pair("FILE", file)}) {
        if (const std::size_t at = text.find(name); at != std::string::npos) text.replace(at, 4, value);
      }
      return text;
    };
    const std::string before = Shell("cat " + file).output;
    const Ended ended = Cli(filled(c.command));
    EXPECT_EQ(ended.status, 1) << c.fault;
    EXPECT_EQ(ended.output, filled(c.message)) << c.fault;
    EXPECT_EQ(Shell("cat " + file).output, before) << c.fault;
    TearDown();
  }
  SetUp();
}

TEST_F(CompanionTest, PrintsAFile) {
  ASSERT_EQ(Cli("new " + folder + "/a.K4X").status, 0);
  const std::string pdf = folder + "/a.pdf";
  const auto pagesOf = [&](const std::string& reports) {
    const Ended ended = Cli("print " + folder + "/a.K4X " + pdf + reports);
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "");
    const std::string info = Shell("pdfinfo " + pdf).output;
    return info.substr(info.find("Pages:"), std::string("Pages:           n").size());
  };
  EXPECT_EQ(pagesOf(""), "Pages:           3");
  EXPECT_EQ(pagesOf(" --reports info,channels"), "Pages:           2");
  EXPECT_NE(Shell("pdftotext " + pdf + " -").output.find("No Embedded Information."), std::string::npos);

  const std::string before = Shell("cat " + pdf).output;
  std::filesystem::create_symlink("a.K4X", folder + "/link.pdf");
  const struct {
    std::string arguments;
    int status;
    std::string output;
  } cases[] = {
      {folder + "/none.K4X " + pdf, 1, "File has been damaged!\n"},
      {folder + "/a.K4X " + folder, 1, "The PDF file " + folder + " can't be written.\n"},
      {folder + "/a.K4X " + pdf + " --reports all", 2, {}},
      {folder + "/a.K4X " + folder + "/./a.K4X", 2, {}},
      {folder + "/a.K4X " + folder + "/link.pdf", 2, {}},
      {folder + "/a.K4X ''", 2, {}},
      {folder + "/a.K4X", 2, {}},
  };
  for (const auto& [arguments, status, output] : cases) {
    const Ended ended = Cli("print " + arguments);
    EXPECT_EQ(ended.status, status) << arguments;
    if (status == 1) {
      EXPECT_EQ(ended.output, output);
    }
  }
  EXPECT_EQ(Shell("cat " + pdf).output, before);
  EXPECT_EQ(std::filesystem::file_size(folder + "/a.K4X"), 713U); // still a data file
}

TEST_F(CompanionTest, FilesAndArguments) {
  const std::string file = folder + "/a.K4X";
  EXPECT_EQ(Cli("new " + file).status, 0);
  EXPECT_EQ(Cli("show " + file).status, 0);
  EXPECT_EQ(Cli("show --json " + file).output.substr(0, 1), "{");
  {
    std::fstream data(file, std::ios::in | std::ios::out | std::ios::binary);
    data.seekp(51); // the format marker becomes the integer 1
    const std::string rest = Shell("tail -c +54 " + file).output;
    data.write("\x02\x00\x01\x00", 4);
    data.write(rest.data(), static_cast<std::streamsize>(rest.size()));
  }
  const Ended ended = Cli("show " + file);
  EXPECT_EQ(ended.status, 0);
  EXPECT_NE(ended.output.find("This software version isn't applied to the radio, please use new software.\n"),
            std::string::npos);
  { std::ofstream(folder + "/damaged.K4X") << "nonsense"; }
  EXPECT_EQ(Cli("show " + folder + "/damaged.K4X").output, "File has been damaged!\n");
  EXPECT_EQ(Cli("show " + folder + "/damaged.K4X").status, 1);
  EXPECT_EQ(Cli("show " + folder + "/none.K4X").status, 1);
  EXPECT_EQ(Cli("new " + folder + "/no/folder.K4X").output, "File hasn't been saved. Please try again!\n");
  const std::string tooLong(120, 'x');
  for (const std::string& bad : {std::string(), std::string("frobnicate"), std::string("show"), "read 17 " + file,
                                 "info write /nowhere " + tooLong, "show --xml " + file}) {
    EXPECT_EQ(Cli(bad).status, 2) << bad;
  }
  EXPECT_EQ(Cli("--help").status, 0);
  EXPECT_EQ(Cli("--version").status, 0);
  EXPECT_EQ(Cli("read /nowhere " + file).output, "/nowhere: No such file or directory\n");
}

} // namespace
} // namespace mr4500x
