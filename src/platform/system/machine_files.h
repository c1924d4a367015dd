// The files of this machine. No state, so all threads may use them.
#pragma once

#include "file_system.h"

namespace mr4500x {

[[nodiscard]] FileSystem& MachineFiles();

} // namespace mr4500x
