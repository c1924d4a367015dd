// The program's name in windows, messages and reports.
#pragma once

#include <string_view>

namespace mr4500x {

inline constexpr std::string_view ProgramTitle = "MR4500X Programming Software";

} // namespace mr4500x
