#pragma once

#include "local_time.h"

#include <string>

class QLocale;

namespace mr4500x {

// "." if the locale reads "9.55" as that number, else ",": the program knows no other separators.
[[nodiscard]] char DecimalSeparatorOf(const QLocale& locale);

// Date and time in the locale's short format.
[[nodiscard]] std::string DateTimeText(const QLocale& locale, const LocalTime& time);

} // namespace mr4500x
