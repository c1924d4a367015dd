// The machine's ports, and the radio at the port of a command line.
#pragma once

#include "call.h"
#include "radio_commands.h"

#include <functional>

namespace mr4500x {

// Whether the text can only be a port: a number, a device that exists, or "auto".
[[nodiscard]] bool IsPort(const std::string& text);

// Whether the text is a port, or looks like one: any number, "COM" and a number, or a path below /dev.
[[nodiscard]] bool LooksLikePort(const std::string& text);

// Runs a command on the given port, the port in MR4500X_PORT, or the only port with a radio that answers. Writes the
// trace if requested.
[[nodiscard]] ExitStatus WithRadio(Call& call, const std::function<ExitStatus(const RadioCommand&)>& run);

// Loads a file, or reads the radio if the name is a port number or the path of a device. False, with a message, on
// failure.
[[nodiscard]] bool LoadFileOrPort(Call& call, const std::string& fileOrPort, RadioImage& image);

[[nodiscard]] ExitStatus ListPorts(Call& call);

} // namespace mr4500x
