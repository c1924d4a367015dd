#include "machine.h"
#include "processes.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <cstdlib>
#include <fstream>
#include <thread>

namespace mr4500x {

using namespace std::chrono_literals;

TEST(UserFolders, AreNeverInTheRootOrCurrentFolderWithoutAHome) {
  const char* const home = std::getenv("HOME");
  const std::string before = home != nullptr ? home : "";
  for (const char* const given : {"relative", "", static_cast<const char*>(nullptr)}) {
    given != nullptr ? setenv("HOME", given, 1) : unsetenv("HOME");
    unsetenv("XDG_STATE_HOME");
    setenv("XDG_CONFIG_HOME", "relative", 1);
    const std::string folder = UserStateFolder();
    EXPECT_TRUE(folder.starts_with('/') && !folder.starts_with("/.")) << folder;
    PrepareProcess();
    const char* const known = std::getenv("HOME");
    EXPECT_EQ(folder, std::string(known != nullptr ? known : "") + "/.local/state/MR4500X") << "Qt asks there";
    EXPECT_EQ(std::getenv("XDG_CONFIG_HOME"), nullptr) << "Qt also asks there";
  }
  setenv("HOME", before.c_str(), 1);
}

TEST(DecimalSeparator, IsTheOneInWhichTheLocaleReadsFractions) {
  EXPECT_EQ(DecimalSeparatorOf(QLocale(QLocale::English, QLocale::UnitedStates)), '.');
  EXPECT_EQ(DecimalSeparatorOf(QLocale(QLocale::German, QLocale::Germany)), ',');
}

TEST(DateTimeText, IsInTheLocalesShortForm) {
  const LocalTime time = {2026, 11, 4, 9, 5, 7};
  EXPECT_EQ(DateTimeText(QLocale::c(), time), "4 Nov 2026 09:05:07");
  EXPECT_EQ(DateTimeText(QLocale(QLocale::German, QLocale::Germany), time).substr(0, 8), "04.11.26");
}

TEST(Processes, RunACommandForAWhile) {
  const struct {
    const char* command;
    std::optional<int> status;
    const char* error;
  } cases[] = {
      {"test \"$(cat)\" = given", 0, ""},
      {"exit 3", 3, ""},
      {"echo first >&2; echo last line >&2; echo out; exit 1", 1, "last line"},
      {"no-such-command 2>/dev/null", 127, ""},
      {"kill -PIPE $$", 141, ""},
      {"echo starts >&2; sleep 1000 & sleep 1000", std::nullopt, "starts"},
  };
  const auto start = std::chrono::steady_clock::now();
  for (const auto& [command, status, error] : cases) {
    const CommandEnd end = RunCommand(command, "given", status ? 60s : 200ms);
    EXPECT_EQ(end.status, status) << command;
    EXPECT_EQ(end.error, error) << command;
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, 60s) << "waits for what it has started";
  const std::string child = RunCommand("sleep 1000 & echo $! >&2; sleep 1000", "", 200ms).error;
  const auto runs = [&] { return std::ifstream("/proc/" + child + "/cmdline").get() != EOF; };
  for (int tries = 0; runs() && tries < 500; ++tries)
    std::this_thread::sleep_for(10ms);
  EXPECT_FALSE(runs()) << "is ended with the command";
}

} // namespace mr4500x
