#include "port_devices.h"

#include <fstream>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

namespace fs = std::filesystem;

TEST(PortDevices, APortIsItsPinElseTheDeviceOfItsNumber) {
  const std::vector<std::string> devices = {"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyS0"};
  std::vector<std::string> pins(16);
  pins[1] = "/dev/ttyUSB0";
  pins[2] = "/dev/ttyUSB0, DTR=off";
  pins[13] = "/dev/radio,rts=on,dtr=on,rts=off";
  pins[14] = "/dev/by,no,dtr=of";
  pins[15] = ",rts=off,dtr=off";
  const std::pair<int, PortDevice> cases[] = {
      {1, {"/dev/ttyUSB0"}}, // also though it is pinned to port 2
      {2, {"/dev/ttyUSB0"}}, // the pin
      {3, {"/dev/ttyUSB0", true, false}},
      {4, {""}}, // more ports than devices
      {14, {"/dev/radio", false, true}},
      {15, {"/dev/by,no,dtr=of"}}, // no option
      {16, {"", false, false}},
      {0, {""}}, // no such port
      {17, {""}},
      {-32768, {""}},
  };
  for (const auto& [port, device] : cases)
    EXPECT_TRUE(DeviceOfPort(port, pins, devices) == device) << "port " << port;
}

TEST(PortDevices, UsbAdaptersComeFirstAndNumbersCountAsNumbers) {
  using enum DeviceKind;
  const std::vector<SerialDevice> devices = {{"ttyS1", BuiltIn},     {"rfcomm0", Other},      {"ttyUSB10", UsbAdapter},
                                             {"ttyS0", BuiltIn},     {"ttyUSB2", UsbAdapter}, {"ttyUSB", UsbAdapter},
                                             {"ttyACM3", UsbAdapter}};
  const std::vector<std::string> expected = {"ttyACM3", "ttyUSB", "ttyUSB2", "ttyUSB10", "ttyS0", "ttyS1", "rfcomm0"};
  EXPECT_EQ(InPortOrder(devices), expected);
}

// Over a copy of how the system describes its terminals.
TEST(PortDevices, AreToldApartAndSpareOnesLeftOut) {
  const fs::path root = fs::path(testing::TempDir()) / "mr4500x_terminals";
  fs::remove_all(root);
  const struct {
    const char* name;
    std::string hardware; // none: unknown
    int uartType;         // -1: not told
    std::optional<DeviceKind> kind;
  } cases[] = {
      {"ttyUSB0", "devices/pci0000:00/usb1/1-1/1-1:1.0/ttyUSB0", -1, DeviceKind::UsbAdapter},
      {"ttyS0", "devices/pnp0/00:04", 4, DeviceKind::BuiltIn},
      {"ttyS1", "devices/platform/serial8250", 0, std::nullopt},
      {"rfcomm0", "", -1, DeviceKind::Other},
      {"cu.usbserial-1410", "", -1, DeviceKind::UsbAdapter},
  };
  for (const auto& [name, hardware, uartType, kind] : cases) {
    const fs::path terminal = root / "tty" / name;
    fs::create_directories(terminal);
    fs::create_directories(root / hardware);
    if (!hardware.empty()) fs::create_directory_symlink(root / hardware, terminal / "device");
    if (uartType >= 0) std::ofstream(terminal / "type") << uartType << '\n';
    const auto device = DescribeDevice(root / "tty", name);
    EXPECT_EQ(device ? std::optional(device->kind) : std::nullopt, kind) << name;
    EXPECT_TRUE(!device || device->path == std::string("/dev/") + name) << name;
  }
}

} // namespace
} // namespace mr4500x
