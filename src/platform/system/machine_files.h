// The file system of this computer. It has no state, so all threads may use it.
#pragma once

#include "file_system.h"

namespace mr4500x {

[[nodiscard]] FileSystem& MachineFiles();

} // namespace mr4500x
