#include "port_address.h"
#include "tty_devices.h"

#include <fstream>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

namespace fs = std::filesystem;

TEST(PortDevices, APortIsItsPinOrElseTheDeviceOfItsNumber) {
  const std::vector<std::string> devices = {"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyS0"};
  std::vector<std::string> pins(16);
  pins[1] = "/dev/ttyUSB0";
  pins[2] = "/dev/ttyUSB0, DTR=off";
  pins[13] = "/dev/radio,rts=on,dtr=on,rts=off";
  pins[14] = "/dev/by,no,dtr=of";
  pins[15] = ",rts=off,dtr=off";
  const std::pair<int, PortDevice> cases[] = {
      {1, {"/dev/ttyUSB0"}}, // although it is pinned to port 2
      {2, {"/dev/ttyUSB0"}}, // the pin
      {3, {"/dev/ttyUSB0", true, false}},
      {4, {""}}, // more ports than devices
      {14, {"/dev/radio", false, true}},
      {15, {"/dev/by,no,dtr=of"}}, // no option
      {16, {"", false, false}},
      {0, {""}}, // no such port
      {17, {""}},
  };
  for (const auto& [port, device] : cases)
    EXPECT_TRUE(DeviceOfPort(port, pins, devices) == device) << "port " << port;
}

// Uses a copy of the system's description of its terminals.
TEST(PortDevices, UsbAdaptersComeFirstNumbersCountAsNumbersAndSparePortsAreLeftOut) {
  const fs::path root = fs::path(testing::TempDir()) / "mr4500x_terminals";
  fs::remove_all(root);
  const std::string usb = "devices/pci0000:00/usb1/1-1/1-1:1.0/", builtIn = "devices/pnp0/00:04";
  // name, hardware (none: unknown), UART type (-1: unknown)
  const std::tuple<const char*, std::string, int> terminals[] = {
      {"ttyS10", builtIn, 4}, {"ttyS1", "devices/platform/serial8250", 0},
      {"rfcomm0", "", -1},    {"ttyUSB10", usb, -1},
      {"ttyS9", builtIn, 4},  {"ttyUSB2", usb, -1},
      {"ttyUSB", usb, -1},    {"cu.usbserial-1410", "", -1},
  };
  std::vector<SerialDevice> devices;
  for (const auto& [name, hardware, uartType] : terminals) {
    const fs::path terminal = root / "tty" / name;
    fs::create_directories(terminal);
    fs::create_directories(root / hardware);
    if (!hardware.empty()) fs::create_directory_symlink(root / hardware, terminal / "device");
    if (uartType >= 0) std::ofstream(terminal / "type") << uartType << '\n';
    if (const auto device = DescribeDevice(root / "tty", name)) devices.push_back(*device);
  }
  const std::vector<std::string> expected = {"/dev/cu.usbserial-1410",
                                             "/dev/ttyUSB",
                                             "/dev/ttyUSB2",
                                             "/dev/ttyUSB10",
                                             "/dev/ttyS9",
                                             "/dev/ttyS10",
                                             "/dev/rfcomm0"};
  EXPECT_EQ(InPortOrder(devices), expected);
}

TEST(PortAddressTest, IsANumberOrAPath) {
  for (const char* const bad : {"", "0", "17", "00000000000001", "COM17"})
    EXPECT_FALSE(ParsePortAddress(bad)) << bad;
  EXPECT_EQ(DisplayName(*ParsePortAddress("16")), "COM16");
  EXPECT_EQ(DisplayName(*ParsePortAddress("com3")), "COM3");
  EXPECT_EQ(DisplayName(*ParsePortAddress("/dev/ttyUSB0")), "/dev/ttyUSB0");
}

} // namespace
} // namespace mr4500x
