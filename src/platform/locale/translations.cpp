#include "translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace mr4500x {

Translations::Translations(const QLocale& locale) {
  const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
  if (!m_program.load(locale, QStringLiteral("mr4500x"), QStringLiteral("_"), folder)) return;
  if (m_qt.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&m_qt);
  QCoreApplication::installTranslator(&m_program);
}

} // namespace mr4500x
