// Replacing this process by another program, and other processes.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// Runs the program with the arguments (the first is its name) on the standard streams of this process, and exits with
// its exit status. Returns only if the program can't be started.
void BecomeProgram(const std::string& program, std::vector<std::string> arguments);

struct CommandEnd {
  std::optional<int> status; // nullopt: it was ended because it took too long
  std::string error;         // the last line of its standard error, or why it could not be started
};
// Runs a command of the user in the system's shell and waits for its end. Signals of the terminal do not reach it. It
// may ignore its input.
[[nodiscard]] CommandEnd RunCommand(const std::string& command, std::string_view input,
                                    std::chrono::milliseconds limit);

// From now on, a write to a pipe without a reader fails instead of ending the program.
void IgnoreBrokenPipes();

// The name of a program that has the device open, or empty if there is none or this user may not see it.
[[nodiscard]] std::string UserOfDevice(const std::string& device);

} // namespace mr4500x
