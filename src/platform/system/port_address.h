// A serial port as the user gives it: a COM number, or the path of a device.
#pragma once

#include "machine_port.h"

#include <memory>
#include <optional>
#include <span>
#include <string>

namespace mr4500x {

struct PortAddress {
  int number = 0;     // 1 to 16; 0 for a path
  std::string device; // the path; empty for a number
};

// "3" and "COM3" are port 3. nullopt for a number outside 1 to 16 and for an empty text.
[[nodiscard]] std::optional<PortAddress> ParsePortAddress(const std::string& text);

// The port's name in messages: "COM" and the number, or the path.
[[nodiscard]] std::string DisplayName(const PortAddress& port);

// Whether it is a number, or the path of a device that exists.
[[nodiscard]] bool PortExists(const PortAddress& port);

// The device of a number is looked up each time a port is opened. `pins` is as in DeviceOfPort.
[[nodiscard]] std::unique_ptr<SerialPort> MakePort(const PortAddress& port, std::span<const std::string> pins);

} // namespace mr4500x
