// Reading the argument and finding its device.
#include "port_argument.h"

#include "decimal.h"
#include "port_devices.h"
#include "serial_line.h"
#include "settings.h"

#include <algorithm>

namespace mr4500x {

std::optional<PortArgument> ParsePortArgument(const std::string& text) {
  if (text.empty()) return std::nullopt;
  const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (!digits) return PortArgument{0, text};
  const std::optional<int> number = ParseWhole(text);
  if (!number || *number < 1 || *number > PortCount) return std::nullopt;
  return PortArgument{*number, {}};
}

std::string NameOf(const PortArgument& port) {
  return port.number > 0 ? ComName(port.number) : port.device;
}

std::unique_ptr<QtSerialPort> PortFor(const PortArgument& port, FileSystem& files, const std::string& settingsFile) {
  if (port.number == 0) return std::make_unique<QtSerialPort>(port.device);
  return std::make_unique<QtSerialPort>([pins = PortDevices(files, settingsFile)](int number) {
    return DeviceOfPort(number, pins, MachineSerialDevices());
  });
}

} // namespace mr4500x
