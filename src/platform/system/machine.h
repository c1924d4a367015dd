// The computer that the program runs on: its folders, clocks and locale.
#pragma once

#include "clock.h"

#include <ctime>
#include <string>

class QLocale;

namespace mr4500x {

// Call first in each program. Makes sure that no file or port gets the number of a closed standard stream, where output
// would go. A closed standard input can't be read, and data for a closed standard output can't be written. A write
// beyond a file size limit fails instead of raising a signal that ends the program. If HOME is not an absolute path, it
// is set from the system's user database.
void PrepareProcess();

// The folder of the running executable, links resolved; empty if unknown.
[[nodiscard]] std::string ProgramFolder();

// "MR4500X" in the user's XDG configuration folder. It may not exist.
[[nodiscard]] std::string UserConfigFolder();
// "MR4500X" in the user's XDG state folder, for data that is kept between runs.
[[nodiscard]] std::string UserStateFolder();

[[nodiscard]] LocalTime LocalNow();
[[nodiscard]] LocalTime LocalTimeOf(std::time_t moment);

class SteadyClock final : public Clock {
public:
  SteadyClock();
  [[nodiscard]] Moment Now() override;
  void WaitUntil(Moment moment) override;
};

// "." if the locale reads "9.55" as that number, otherwise ",". The program supports no other separators.
[[nodiscard]] char DecimalSeparatorOf(const QLocale& locale);

// Date and time in the locale's short format.
[[nodiscard]] std::string DateTimeText(const QLocale& locale, const LocalTime& time);

} // namespace mr4500x
