// The machine that the program runs on: its folders, clocks and locale.
#pragma once

#include "clock.h"

#include <ctime>
#include <string>

class QLocale;

namespace mr4500x {

// First in each program. No file and no port takes the place of a standard stream that was closed: what is printed
// would go there. A write at a file size limit fails, instead of a signal that ends the program. Without a HOME that is
// an absolute path, the user's entry in the system's list of users has it.
void PrepareProcess();

// The folder of the running executable, links resolved; empty if unknown.
[[nodiscard]] std::string ProgramFolder();

// "MR4500X" in the user's XDG configuration folder. It may not exist.
[[nodiscard]] std::string UserConfigFolder();
// The same in the folder for what a program remembers between its runs.
[[nodiscard]] std::string UserStateFolder();

[[nodiscard]] LocalTime LocalNow();
[[nodiscard]] LocalTime LocalTimeOf(std::time_t moment);

class SteadyClock final : public Clock {
public:
  SteadyClock();
  [[nodiscard]] Moment Now() override;
  void WaitUntil(Moment moment) override;
};

// "." if the locale reads "9.55" as that number, else ",": the program knows no other separators.
[[nodiscard]] char DecimalSeparatorOf(const QLocale& locale);

// Date and time in the locale's short format.
[[nodiscard]] std::string DateTimeText(const QLocale& locale, const LocalTime& time);

} // namespace mr4500x
