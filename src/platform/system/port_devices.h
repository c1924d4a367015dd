// Which serial device of this machine stands for COM1 to COM16.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mr4500x {

// The device of port n: its pin, else the n-th of `devices`; empty for none. There are as many ports as `pins`, which
// holds the device path chosen for each, or an empty one. A pin takes nothing out of the count: a device pinned to one
// port is still the n-th device too, so that pinning one port leaves the others where they were.
[[nodiscard]] std::string DeviceOfPort(int n, std::span<const std::string> pins,
                                       const std::vector<std::string>& devices);

enum class DeviceKind { UsbAdapter, BuiltIn, Other };

struct SerialDevice {
  std::string path;
  DeviceKind kind;
};

// USB adapters first, then built-in ports, then the rest (Bluetooth and the like), each in natural name order:
// ttyUSB2 before ttyUSB10.
[[nodiscard]] std::vector<std::string> InPortOrder(std::vector<SerialDevice> devices);

// The system's description of the terminal `name`, in its folder of terminals; nothing for one that stands for no
// hardware, such as the spare entries of the built-in ports' driver.
[[nodiscard]] std::optional<SerialDevice> DescribeDevice(const std::filesystem::path& terminals,
                                                         const std::string& name);

// The paths of this machine's serial devices, in port order.
[[nodiscard]] std::vector<std::string> MachineSerialDevices();

} // namespace mr4500x
