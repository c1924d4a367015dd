// The user's language, for as long as this lives: the texts of the program from translations/mr4500x_LANGUAGE.qm beside
// it, and Qt's own. Where the program has no translation Qt's texts stay English too, so that a window speaks one
// language.
#pragma once

#include <QTranslator>

class QLocale;

namespace mr4500x {

class Translations {
public:
  explicit Translations(const QLocale& locale);

private:
  QTranslator m_qt;
  QTranslator m_program;
};

} // namespace mr4500x
