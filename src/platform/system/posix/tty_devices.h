// Information from the kernel about serial devices.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace mr4500x {

enum class DeviceKind { UsbAdapter, BuiltIn, Other };

struct SerialDevice {
  std::string path;
  DeviceKind kind;
};

// USB adapters, built-in ports, then others such as Bluetooth, each in natural order: ttyUSB2 before ttyUSB10.
[[nodiscard]] std::vector<std::string> InPortOrder(std::vector<SerialDevice> devices);

// Describes a terminal from its entry in `terminals` (/sys/class/tty); nullopt for a spare entry without hardware.
[[nodiscard]] std::optional<SerialDevice> DescribeDevice(const std::filesystem::path& terminals,
                                                         const std::string& name);

} // namespace mr4500x
