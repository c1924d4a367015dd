// Replacing this process by another program, and other processes.
#pragma once

#include <string>
#include <vector>

namespace mr4500x {

// Runs the program with the arguments (the first is its name) on the standard streams of this process, and exits with
// its exit status. Returns only if the program can't be started.
void BecomeProgram(const std::string& program, std::vector<std::string> arguments);

// From now on, a write to a pipe without a reader fails instead of ending the program.
void IgnoreBrokenPipes();

// The name of a program that has the device open, or empty if there is none or this user may not see it.
[[nodiscard]] std::string UserOfDevice(const std::string& device);

} // namespace mr4500x
