#include "machine.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <algorithm>

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
