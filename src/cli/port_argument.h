// The PORT argument: a port number 1 to 16, or the path of a device.
#pragma once

#include "qt_serial_port.h"

#include <memory>
#include <optional>
#include <string>

namespace mr4500x {

class FileSystem;

struct PortArgument {
  int number = 0;     // 1 to 16; 0 for a path
  std::string device; // the path; empty for a number
};

// "3" and "COM3" are the number 3. Nothing for a number outside 1 to 16 or an empty text.
[[nodiscard]] std::optional<PortArgument> ParsePortArgument(const std::string& text);

// How messages call the port: "COM" and the number, or the path.
[[nodiscard]] std::string NameOf(const PortArgument& port);

// The device of a number is looked up with the pins of the settings file.
[[nodiscard]] std::unique_ptr<QtSerialPort> PortFor(const PortArgument& port, FileSystem& files,
                                                    const std::string& settingsFile);

} // namespace mr4500x
