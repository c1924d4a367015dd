// The machine's ports, and the radio at the one that a command line names.
#pragma once

#include "call.h"
#include "radio_commands.h"

#include <functional>

namespace mr4500x {

// Whether it can only be meant as a port: a number, a device that exists, or "auto".
[[nodiscard]] bool IsPort(const std::string& text);

// Runs a command on the port that was given, that MR4500X_PORT names, or that alone has a radio that answers, with its
// trace if one is wanted.
[[nodiscard]] ExitStatus WithRadio(Call& call, const std::function<ExitStatus(const RadioCommand&)>& run);

// Loads a file, or reads the radio if it is a port's number or leads to a device. False, with a message, if it can't.
[[nodiscard]] bool LoadFileOrPort(Call& call, const std::string& fileOrPort, RadioImage& image);

[[nodiscard]] ExitStatus ListPorts(Call& call);

} // namespace mr4500x
