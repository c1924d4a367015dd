// A program run as a child process, with what it used.
#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <string>
#include <vector>

namespace mr4500x {

// Starts a program with its output thrown away, or readable at the returned descriptor where `output` is given.
[[nodiscard]] pid_t StartProgram(const std::vector<std::string>& words, int* output = nullptr);

// Waits for its end. Its exit status, -1 when it was killed.
int WaitForProgram(pid_t process, rusage& used);

} // namespace mr4500x
