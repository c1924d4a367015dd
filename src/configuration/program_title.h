// The program's name, as windows, messages and papers show it.
#pragma once

#include <string_view>

namespace mr4500x {

inline constexpr std::string_view ProgramTitle = "MR4500X Programming Software";

} // namespace mr4500x
