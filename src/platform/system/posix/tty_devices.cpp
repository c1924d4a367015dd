#include "tty_devices.h"

#include "port_devices.h"
#include "text.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <fstream>
#include <set>
#include <string_view>
#include <system_error>

namespace mr4500x {
namespace {

namespace fs = std::filesystem;

// Removes the leading digits from the text and returns them without leading zeros.
std::string_view TakeNumber(std::string_view& text) {
  const std::size_t length =
      static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
  std::string_view digits = text.substr(0, length);
  text.remove_prefix(length);
  while (digits.size() > 1 && digits.front() == '0')
    digits.remove_prefix(1);
  return digits;
}

bool NaturallyBefore(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    if (IsDigit(a.front()) && IsDigit(b.front())) {
      const std::string_view x = TakeNumber(a);
      const std::string_view y = TakeNumber(b);
      if (x.size() != y.size()) return x.size() < y.size();
      if (x != y) return x < y;
    } else {
      if (a.front() != b.front()) return a.front() < b.front();
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  return a.size() < b.size();
}

// The 8250 driver lists more built-in ports than exist; the spare ones have UART type 0.
bool IsSpare(const fs::path& entry) {
  std::ifstream file(entry / "type");
  int type = 0;
  return static_cast<bool>(file >> type) && type == 0;
}

} // namespace

std::vector<std::string> InPortOrder(std::vector<SerialDevice> devices) {
  std::sort(devices.begin(), devices.end(), [](const SerialDevice& a, const SerialDevice& b) {
    return a.kind != b.kind ? a.kind < b.kind : NaturallyBefore(a.path, b.path);
  });
  std::vector<std::string> paths;
  paths.reserve(devices.size());
  for (SerialDevice& device : devices)
    paths.push_back(std::move(device.path));
  return paths;
}

std::optional<SerialDevice> DescribeDevice(const fs::path& terminals, const std::string& name) {
  const fs::path entry = terminals / name;
  const std::string path = "/dev/" + name;
  std::error_code error;
  const std::string hardware = fs::canonical(entry / "device", error).string();
  if (error) {
    // No known hardware, for example a Bluetooth link or a system without this folder.
    return SerialDevice{path, name.find("usb") != std::string::npos ? DeviceKind::UsbAdapter : DeviceKind::Other};
  }
  if (IsSpare(entry)) return std::nullopt;
  return SerialDevice{path, hardware.find("/usb") != std::string::npos ? DeviceKind::UsbAdapter : DeviceKind::BuiltIn};
}

std::vector<std::string> MachineSerialDevices() {
  const fs::path terminals = "/sys/class/tty";
  std::set<std::string> names;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
    names.insert(info.portName().toStdString());
  // Qt omits built-in ports that this user may not open. They are added here because port numbers must not depend on
  // the user. The missing permission is reported when the port is opened.
  std::error_code error;
  for (fs::directory_iterator entry(terminals, error); entry != fs::directory_iterator(); entry.increment(error))
    if (fs::exists(entry->path() / "device", error)) names.insert(entry->path().filename().string());
  std::vector<SerialDevice> devices;
  for (const std::string& name : names) {
    const auto device = DescribeDevice(terminals, name);
    if (device && fs::exists(device->path, error)) devices.push_back(*device);
  }
  return InPortOrder(std::move(devices));
}

// A bare name is a device in /dev, unless the current folder has a file of that name.
std::string DeviceNamed(const std::string& text) {
  std::error_code ignored;
  const bool isHere = text.find('/') == std::string::npos && fs::exists(text, ignored);
  return isHere ? "./" + text : text;
}

bool DeviceExists(const std::string& path) {
  std::error_code unknown;
  return fs::is_character_file(path, unknown);
}

} // namespace mr4500x
