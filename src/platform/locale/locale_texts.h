// What the user's locale decides of the texts on screen and paper.
#pragma once

#include "radio_image.h"

#include <QString>

#include <string>
#include <string_view>

class QLocale;

namespace mr4500x {

// The decimal separator, as far as this program knows separators: "." where the locale reads 9.55 as the number that it
// is, else ",".
[[nodiscard]] char DecimalSeparatorOf(const QLocale& locale);

// A text marked by SHOWN in the user's language; the text itself where the catalogue has none.
[[nodiscard]] QString Translated(std::string_view text);

// Date and time in the locale's own short form.
[[nodiscard]] std::string DateTimeText(const QLocale& locale, const LocalTime& time);

} // namespace mr4500x
