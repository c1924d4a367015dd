#pragma once

#include <cstddef>

namespace mr4500x {

// Calls of operator new since the start of the program.
[[nodiscard]] std::size_t AllocationCount();

} // namespace mr4500x
