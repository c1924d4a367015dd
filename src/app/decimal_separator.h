// The decimal separator of the user's locale, as far as this program knows separators.
#pragma once

class QLocale;

namespace mr4500x {

// "." where the locale reads 9.55 as the number that it is, else ",".
[[nodiscard]] char DecimalSeparatorOf(const QLocale& locale);

} // namespace mr4500x
