#include "machine.h"
#include "processes.h"
#include "rows.h"

#include <QLocale>

#include <cstdlib>
#include <fstream>
#include <thread>

#include <pwd.h>
#include <unistd.h>

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
    EXPECT_TRUE(folder.starts_with(getpwuid(geteuid())->pw_dir) && !folder.starts_with("/.")) << folder;
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
  EXPECT_EQ(LocalTimeOf(67).second, 7);
  EXPECT_EQ(DateTimeText(QLocale::c(), time), "4 Nov 2026 09:05:07");
  EXPECT_EQ(DateTimeText(QLocale(QLocale::German, QLocale::Germany), time).substr(0, 8), "04.11.26");
}

TEST(Processes, RunACommandForAWhile) {
  const auto start = std::chrono::steady_clock::now();
  IgnoreBrokenPipes(); // a command does not inherit this
  for (const Row& row : RowsOf(CASES "commands.txt", "(.*) -> (stopped|\\d+) ?(.*)")) {
    const bool isStopped = row[2] == "stopped";
    const CommandEnd end = RunCommand(row[1], "given", isStopped ? 200ms : 60s);
    EXPECT_EQ(end.status ? std::to_string(*end.status) : "stopped", row[2]) << row[0];
    EXPECT_EQ(end.error, row[3]) << row[0];
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, 60s) << "waits for what it has started";
  const std::string child = RunCommand("sleep 1000 & echo $! >&2; sleep 1000", "", 200ms).error;
  const auto runs = [&] { return std::ifstream("/proc/" + child + "/cmdline").get() != EOF; };
  for (int tries = 0; runs() && tries < 500; ++tries)
    std::this_thread::sleep_for(10ms);
  EXPECT_FALSE(runs()) << "is ended with the command";
}

} // namespace mr4500x
