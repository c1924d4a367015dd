#pragma once

#include "local_time.h"

#include <string>

namespace mr4500x {

// The folder of the running executable, links resolved; empty if unknown.
[[nodiscard]] std::string ProgramFolder();

// "MR4500X" in the user's XDG configuration folder. It may not exist.
[[nodiscard]] std::string UserConfigFolder();

[[nodiscard]] LocalTime LocalNow();

} // namespace mr4500x
