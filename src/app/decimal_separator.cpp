#include "decimal_separator.h"

#include <QLocale>

namespace mr4500x {

char DecimalSeparatorOf(const QLocale& locale) {
  bool isNumber = false;
  const double value = locale.toDouble(QStringLiteral("9.55"), &isNumber);
  return isNumber && value >= 9.54 && value <= 9.56 ? '.' : ',';
}

} // namespace mr4500x
