// What the user's locale decides of the texts on screen and paper.
#pragma once

#include "local_time.h"

#include <string>

class QLocale;

namespace mr4500x {

// The decimal separator, as far as this program knows separators: "." where the locale reads 9.55 as the number that it
// is, else ",".
[[nodiscard]] char DecimalSeparatorOf(const QLocale& locale);

// Date and time in the locale's own short form.
[[nodiscard]] std::string DateTimeText(const QLocale& locale, const LocalTime& time);

} // namespace mr4500x
