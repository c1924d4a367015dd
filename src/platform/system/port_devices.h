// The mapping of COM1 to COM16 to this machine's serial devices.
#pragma once

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

// The paths of this machine's serial devices, in port order; empty where a port has none.
[[nodiscard]] std::vector<std::string> MachineSerialDevices();

// The path of the device that a user has named.
[[nodiscard]] std::string DeviceNamed(const std::string& text);
[[nodiscard]] bool DeviceExists(const std::string& path);

} // namespace mr4500x
