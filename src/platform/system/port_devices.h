// The mapping of COM1 to COM16 to this machine's serial devices.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mr4500x {

struct PortDevice {
  std::string path;
  bool rts = true, dtr = true; // what the two control lines are while the port is open
  bool operator==(const PortDevice&) const = default;
};

// The device of port n, counted from 1: its entry in `pins` (set by the user: a path, perhaps followed by ",rts=off"
// and
// ",dtr=off"; empty for none), else the n-th of `devices`; an empty path for none or n out of range. A pinned device
// keeps its place in `devices`, so that pinning a port does not move the others.
[[nodiscard]] PortDevice DeviceOfPort(int n, std::span<const std::string> pins,
                                      const std::vector<std::string>& devices);

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

// The paths of this machine's serial devices, in port order.
[[nodiscard]] std::vector<std::string> MachineSerialDevices();

} // namespace mr4500x
