#include "port_address.h"

#include "port_devices.h"
#include "text.h"
#include "utf8.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <vector>

namespace mr4500x {
namespace {

constexpr std::size_t MostDigits = 9;

bool IsNumber(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, IsDigit);
}

} // namespace

std::optional<PortAddress> ParsePortAddress(const std::string& text) {
  std::string_view digits = text;
  const bool isCom = text.starts_with("COM") || text.starts_with("com");
  if (isCom) digits.remove_prefix(3);
  if (text.empty()) return std::nullopt;
  if (!IsNumber(digits)) return PortAddress{0, DeviceNamed(text)};
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (digits.size() <= MostDigits && number >= 1 && number <= PortCount) return PortAddress{number, {}};
  if (isCom && DeviceExists(text)) return PortAddress{0, text}; // the system's own name
  return std::nullopt;
}

std::string DisplayName(const PortAddress& port) {
  constexpr std::size_t LongestPath = 4096;
  return port.number > 0 ? ComName(port.number) : Printable(port.device, LongestPath);
}

bool PortExists(const PortAddress& port) {
  return port.number > 0 || DeviceExists(port.device);
}

std::unique_ptr<SerialPort> MakePort(const PortAddress& port, std::span<const std::string> pins) {
  if (port.number == 0) return MakeSerialPort(port.device);
  return MakeSerialPort([pins = std::vector(pins.begin(), pins.end())](int number) {
    return DeviceOfPort(number, pins, MachineSerialDevices());
  });
}

} // namespace mr4500x
