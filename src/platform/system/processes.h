// Other programs in the place of this one.
#pragma once

#include <string>
#include <vector>

namespace mr4500x {

// Runs the program with the arguments, of which the first is its name, on the standard streams of this one, and ends
// with its exit status. Returns only if it can't be started.
void BecomeProgram(const std::string& program, std::vector<std::string> arguments);

// From here on a write to a pipe that nobody reads fails, instead of ending the program.
void IgnoreBrokenPipes();

// The name of a program that has the device open, as far as this user may know; else empty.
[[nodiscard]] std::string UserOfDevice(const std::string& device);

} // namespace mr4500x
