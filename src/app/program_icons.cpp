#include "program_icons.h"

#include <QString>

// A library's resources have to be asked for, and that from outside every namespace.
static void LoadIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace mr4500x {

QIcon ProgramIcon(const char* name) {
  LoadIcons();
  return QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
}

} // namespace mr4500x
