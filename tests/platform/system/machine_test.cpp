#include "machine.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <algorithm>
#include <cstdlib>

namespace mr4500x {

using namespace std::chrono_literals;

TEST(SteadyClock, WaitsEndNeverEarlyAndAddNoDelayOfTheirOwn) {
  SteadyClock clock;
  Clock::Moment least = 1h; // overshoot: a machine that has other work adds to most, a clock that is late adds to all
  for (int i = 0; i < 50; ++i) {
    const Clock::Moment deadline = clock.Now() + 2ms;
    clock.WaitUntil(deadline);
    least = std::min(least, clock.Now() - deadline);
  }
  EXPECT_GE(least, 0us);
  EXPECT_LT(least, 500us);
}

TEST(UserFolders, AreNeverInTheRootFolderOrTheCurrentOneForWantOfAHome) {
  const char* const home = std::getenv("HOME");
  const std::string before = home != nullptr ? home : "";
  for (const char* const given : {"relative", "", static_cast<const char*>(nullptr)}) {
    given != nullptr ? setenv("HOME", given, 1) : unsetenv("HOME");
    unsetenv("XDG_STATE_HOME");
    const std::string folder = UserStateFolder();
    EXPECT_TRUE(folder.starts_with('/') && !folder.starts_with("/.")) << folder;
    PrepareProcess();
    EXPECT_EQ(folder, std::string(std::getenv("HOME")) + "/.local/state/MR4500X") << "Qt asks there";
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

} // namespace mr4500x
