#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <string>
#include <vector>

namespace mr4500x {

// Discards the program's output, or makes it readable at `*output`.
[[nodiscard]] pid_t StartProgram(const std::vector<std::string>& words, int* output = nullptr);

// Waits for the program. Returns its exit status, -1 if it was killed.
int WaitForProgram(pid_t process, rusage& used);

} // namespace mr4500x
