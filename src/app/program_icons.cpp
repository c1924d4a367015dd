#include "program_icons.h"

#include <QString>

// A static library's resources need this call, and the macro only works outside of namespaces.
static void LoadIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace mr4500x {

QIcon ProgramIcon(const char* name) {
  LoadIcons();
  return QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
}

} // namespace mr4500x
