#pragma once

#include <QIcon>

namespace mr4500x {

// The icon from icons/NAME.svg.
[[nodiscard]] QIcon ProgramIcon(const char* name);

} // namespace mr4500x
