#include "port_devices.h"

#include "text.h"

#include <algorithm>
#include <cstddef>

namespace mr4500x {
namespace {

// Anything that is not an option belongs to the path.
PortDevice PinnedDevice(PortDevice device) {
  while (true) {
    const std::size_t comma = std::min(device.path.rfind(','), device.path.size());
    std::string option = Lower(device.path.substr(comma));
    std::erase(option, ' ');
    if (option == ",rts=off")
      device.rts = false;
    else if (option == ",dtr=off")
      device.dtr = false;
    else if (option != ",rts=on" && option != ",dtr=on")
      return device;
    device.path.resize(comma);
  }
}

} // namespace

PortDevice DeviceOfPort(int n, std::span<const std::string> pins, const std::vector<std::string>& devices) {
  const auto index = static_cast<std::size_t>(n) - 1;
  if (index >= pins.size()) return {}; // also below 1
  if (!pins[index].empty()) return PinnedDevice({pins[index]});
  return {index < devices.size() ? devices[index] : std::string()};
}

} // namespace mr4500x
