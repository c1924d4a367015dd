#include "machine.h"

#include <QDateTime>
#include <QLocale>

namespace mr4500x {

char DecimalSeparatorOf(const QLocale& locale) {
  bool isNumber = false;
  const double value = locale.toDouble(QStringLiteral("9.55"), &isNumber);
  return isNumber && value >= 9.54 && value <= 9.56 ? '.' : ',';
}

std::string DateTimeText(const QLocale& locale, const LocalTime& time) {
  const QDateTime moment(QDate(time.year, time.month, time.day), QTime(time.hour, time.minute, time.second));
  return locale.toString(moment, QLocale::ShortFormat).toStdString();
}

} // namespace mr4500x
