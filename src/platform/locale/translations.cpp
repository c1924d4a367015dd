#include "translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace mr4500x {

Translations::Translations(const QLocale& locale) {
  const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
  // Not past English, which has no file: whoever prefers it wants no later choice.
  for (const QString& language : locale.uiLanguages()) {
    if (QLocale(language).language() == QLocale::English) return;
    if (m_program.load(QLocale(language), QStringLiteral("mr4500x"), QStringLiteral("_"), folder)) break;
  }
  if (m_program.isEmpty()) return;
  if (m_qt.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&m_qt);
  QCoreApplication::installTranslator(&m_program);
}

} // namespace mr4500x
