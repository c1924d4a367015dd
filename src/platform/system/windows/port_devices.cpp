#include "port_devices.h"

#include "serial_port.h"
#include "wide_text.h"

#include <array>

#include <windows.h>

namespace mr4500x {

// On Windows, COM1 to COM16 are the system's own names.
std::vector<std::string> MachineSerialDevices() {
  std::vector<std::string> devices(PortCount);
  for (int number = 1; std::string & device : devices)
    if (const std::string name = ComName(number++); DeviceExists(name)) device = name;
  return devices;
}

std::string DeviceNamed(const std::string& text) {
  return text;
}

bool DeviceExists(const std::string& path) {
  constexpr std::string_view Prefix = R"(\\.\)";
  std::array<wchar_t, MAX_PATH> target{};
  const std::wstring name = Wide(path.starts_with(Prefix) ? path.substr(Prefix.size()) : path);
  return QueryDosDeviceW(name.c_str(), target.data(), static_cast<DWORD>(target.size())) != 0;
}

} // namespace mr4500x
