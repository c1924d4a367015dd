// The program's own icons, sharp at every scale.
#pragma once

#include <QIcon>

namespace mr4500x {

// By the name of its file in icons/.
[[nodiscard]] QIcon ProgramIcon(const char* name);

} // namespace mr4500x
