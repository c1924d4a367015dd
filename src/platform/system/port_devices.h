// The mapping of COM1 to COM16 to this machine's serial devices.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace mr4500x {

struct PortDevice {
  std::string path;
  bool rts = true, dtr = true; // the state of the two control lines while the port is open
  bool operator==(const PortDevice&) const = default;
};

// The device of port n, counted from 1: the user's entry in `pins` (a path, optionally followed by ",rts=off" and
// ",dtr=off"), otherwise the n-th of `devices`. The path is empty if there is none or n is out of range. A pinned
// device keeps its place in `devices`, so pinning a port does not move the others.
[[nodiscard]] PortDevice DeviceOfPort(int n, std::span<const std::string> pins,
                                      const std::vector<std::string>& devices);

// The paths of this machine's serial devices, in port order; empty where a port has none.
[[nodiscard]] std::vector<std::string> MachineSerialDevices();

// The path of a device from the name that the user gave.
[[nodiscard]] std::string DeviceNamed(const std::string& text);
[[nodiscard]] bool DeviceExists(const std::string& path);

} // namespace mr4500x
