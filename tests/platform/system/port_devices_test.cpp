#include "port_address.h"
#include "rows.h"
#include "tty_devices.h"

#include <fstream>

namespace mr4500x {
namespace {

namespace fs = std::filesystem;

TEST(PortDevices, APortIsItsPinOrElseTheDeviceOfItsNumber) {
  const std::vector<std::string> devices = {"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyS0"};
  const auto cases = RowsOf(CASES "port_devices.txt", "[^:]+: (\\d+) ?(.*) -> ?(\\S*)( RTS off)?( DTR off)?");
  std::vector<std::string> pins(16);
  for (const Row& row : cases)
    if (!row[2].empty()) pins.at(std::stoul(row[1]) - 1) = row[2];
  for (const Row& row : cases) {
    const PortDevice expected = {row[3], row[4].empty(), row[5].empty()};
    EXPECT_EQ(DeviceOfPort(std::stoi(row[1]), pins, devices), expected) << row[0];
  }
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
      {"rfcommx", "", -1},    {"rfcomm1a10", "", -1},
      {"rfcomm01a3", "", -1}, {"rfcomm1a2", "", -1},
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
  const std::vector<std::string> expected = {
      "/dev/cu.usbserial-1410", "/dev/ttyUSB",    "/dev/ttyUSB2",    "/dev/ttyUSB10",   "/dev/ttyS9",  "/dev/ttyS10",
      "/dev/rfcomm0",           "/dev/rfcomm1a2", "/dev/rfcomm01a3", "/dev/rfcomm1a10", "/dev/rfcommx"};
  EXPECT_EQ(InPortOrder(devices), expected);
}

TEST(PortAddressTest, IsANumberOrAPath) {
  for (const char* const bad : {"", "0", "17", "00000000000001", "COM17"})
    EXPECT_FALSE(ParsePortAddress(bad)) << bad;
  EXPECT_EQ(DisplayName(*ParsePortAddress("16")), "COM16");
  EXPECT_EQ(DisplayName(*ParsePortAddress("com3")), "COM3");
  for (const char* const device : {"/dev/ttyUSB0", "COM", "COMx"})
    EXPECT_EQ(DisplayName(*ParsePortAddress(device)), device);
}

} // namespace
} // namespace mr4500x
