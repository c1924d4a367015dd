#include "info_text.h"

#include "embedded_info.h"

#include <QString>
#include <QStringDecoder>

namespace mr4500x {

std::optional<std::u16string> InfoFromArgument(std::string_view argument) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  QString text = decoder(QByteArrayView(argument.data(), static_cast<qsizetype>(argument.size())));
  if (decoder.hasError()) return std::nullopt;
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
  return text.toStdU16String();
}

std::string InfoToPrint(std::u16string_view text) {
  QString shown = QStringView(VisibleText(text)).toString();
  shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  for (QChar& c : shown) // keep a radio's text from controlling the terminal
    if (c.category() == QChar::Other_Control && c != QLatin1Char('\n') && c != QLatin1Char('\t')) c = QLatin1Char('.');
  return shown.toStdString();
}

} // namespace mr4500x
