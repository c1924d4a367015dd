// Where the program stands on this machine, and the machine's local time.
#pragma once

#include "local_time.h"

#include <string>

namespace mr4500x {

// The folder of the running executable, links resolved; empty when the system does not tell.
[[nodiscard]] std::string ProgramFolder();

// The user's own folder for this program's settings: "MR4500X" in the XDG configuration folder. It need not exist.
[[nodiscard]] std::string UserConfigFolder();

[[nodiscard]] LocalTime LocalNow();

} // namespace mr4500x
