// The command line tool against the simulated radio, both as processes, over a real serial device.
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
#include <set>

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

class CommandLineTest : public testing::Test {
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

TEST_F(CommandLineTest, TheTypicalJob) {
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
    using enum ImageBlock; // the four that no file holds
    if (std::set{RadioIdBlock, WriteStampBlock, EmbeddedInfoBlock, FirmwareVersionBlock}.contains(place.block))
      continue;
    const auto block = BlockBytes(image, place.block);
    EXPECT_TRUE(std::equal(block.begin(), block.end(), memory.begin() + place.address)) << place.address;
  }
  EXPECT_EQ(image.FiveToneStandard, image.ResetTimeBlock[2]);

  image.RadioSettingsBlock[4] = 100;
  ASSERT_TRUE(SaveDataFile(files, file, image));
  for (const std::string& command : {"write " + file + " " + port, "info write " + port + " 'two\nlines'"}) {
    ended = Cli(command);
    EXPECT_EQ(ended.status, 0) << command << ": " << ended.output;
  }
  ended = Cli("info read " + port);
  EXPECT_EQ(ended.output.substr(0, 12), "two\nlines\n20") << ended.output;
  EXPECT_EQ(Cli("read " + port + " " + file).status, 0);
  ASSERT_EQ(LoadDataFile(files, file, image).outcome, LoadOutcome::Loaded);
  EXPECT_EQ(image.RadioSettingsBlock[4], 100);
}

TEST_F(CommandLineTest, FailuresHaveTheirMessageAndLeaveTheFile) {
  const struct {
    const char *fault, *command, *message; // FILE and PORT stand for themselves
  } cases[] = {
      {"short-reply", "read PORT FILE", "Reading is interrupted, please retry Read.\n"},
      {"wrong-model", "write FILE PORT",
       "The radio model is wrong. The connected radio doesn't belong to LR7200 Series. Can't continue!\n"},
      {"other-band", "write FILE PORT",
       "The frequency band is different from the destination radio model.Are you still continue?\n"},
      {"ng", "write FILE PORT", "Writing data error, please retry Write.\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.fault);
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
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output, filled(c.message));
    EXPECT_EQ(Shell("cat " + file).output, before);
    TearDown();
  }
  SetUp();
}

TEST_F(CommandLineTest, PrintsAFile) {
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
    std::string output; // whatever the usage is
  } cases[] = {
      {folder + "/none.K4X " + pdf, 1, "File has been damaged!\n"},
      {folder + "/a.K4X " + folder, 1, "The PDF file " + folder + " can't be written.\n"},
      {folder + "/a.K4X " + pdf + " --reports all", 2, {}},
      {folder + "/a.K4X " + folder + "/./a.K4X", 2, {}},
      {folder + "/a.K4X " + folder + "/link.pdf", 2, {}},
      {folder + "/a.K4X ''", 2, {}},
  };
  for (const auto& [arguments, status, output] : cases) {
    const Ended ended = Cli("print " + arguments);
    EXPECT_EQ(ended.status, status) << arguments;
    EXPECT_TRUE(status == 2 || ended.output == output) << arguments << ": " << ended.output;
  }
  EXPECT_EQ(Shell("cat " + pdf).output, before);
  EXPECT_EQ(std::filesystem::file_size(folder + "/a.K4X"), 713U); // still a data file
}

TEST_F(CommandLineTest, FilesAndArguments) {
  const std::string file = folder + "/a.K4X", damaged = folder + "/damaged.K4X";
  EXPECT_EQ(Cli("new " + file).status, 0);
  EXPECT_EQ(Cli("show --json " + file).output.substr(0, 1), "{");
  std::string content = Shell("cat " + file).output;
  content.replace(51, 2, std::string("\x02\0\x01\0", 4)); // the format marker becomes the integer 1
  std::ofstream(file, std::ios::binary) << content;
  std::ofstream(damaged) << "nonsense";
  const struct {
    std::string arguments;
    int status;
    std::string output; // begins with it
  } cases[] = {
      {"show " + file, 0, "This software version isn't applied to the radio, please use new software.\n"},
      {"show " + damaged, 1, "File has been damaged!\n"},
      {"show " + folder + "/none.K4X", 1, "File has been damaged!\n"},
      {"new " + folder + "/no/folder.K4X", 1, "File hasn't been saved. Please try again!\n"},
      {"read /nowhere " + file, 1, "/nowhere: No such file or directory\n"},
      {"", 2, {}},
      {"frobnicate", 2, {}},
      {"show", 2, {}},
      {"read 17 " + file, 2, {}},
      {"info write /nowhere " + std::string(120, 'x'), 2, {}},
      {"show --xml " + file, 2, {}},
      {"--help", 0, {}},
      {"--version", 0, {}},
  };
  for (const auto& [arguments, status, output] : cases) {
    const Ended ended = Cli(arguments);
    EXPECT_EQ(ended.status, status) << arguments;
    EXPECT_TRUE(ended.output.starts_with(output)) << arguments << ": " << ended.output;
  }
}

} // namespace
} // namespace mr4500x
