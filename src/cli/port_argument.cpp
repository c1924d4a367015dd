#include "port_argument.h"

#include "decimal.h"
#include "port_choice.h"
#include "port_devices.h"
#include "serial_line.h"
#include "settings.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace mr4500x {
namespace {

bool IsNumber(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

// A bare name is a device in /dev unless there is such a file in the current folder.
std::string DevicePath(const std::string& text) {
  std::error_code ignored;
  const bool isHere = text.find('/') == std::string::npos && std::filesystem::exists(text, ignored);
  return isHere ? "./" + text : text;
}

} // namespace

std::optional<PortArgument> ParsePortArgument(const std::string& text) {
  const std::string_view named = text;
  const bool isCom = (named.starts_with("COM") || named.starts_with("com")) && IsNumber(named.substr(3));
  const std::string_view digits = isCom ? named.substr(3) : named;
  if (text.empty()) return std::nullopt;
  if (!IsNumber(digits)) return PortArgument{0, DevicePath(text)};
  const std::optional<int> number = ParseWhole(digits);
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
