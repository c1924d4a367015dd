#include "port_devices.h"

#include <fstream>

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

namespace fs = std::filesystem;

TEST(PortDevices, APortIsItsPinElseTheDeviceOfItsNumber) {
  const std::vector<std::string> devices = {"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyS0"};
  DevicePins pins;
  pins[1] = "/dev/ttyUSB0";
  pins[15] = "/dev/radio";
  struct Case {
    int port;
    std::string device;
  };
  const Case cases[] = {
      {1, "/dev/ttyUSB0"}, // also though it is pinned to port 2
      {2, "/dev/ttyUSB0"}, // the pin
      {3, "/dev/ttyS0"},   // where it was before the pin
      {4, ""},             // more ports than devices
      {16, "/dev/radio"},
      {0, ""}, // no such port
      {17, ""},
      {-32768, ""},
  };
  for (const Case& c : cases)
    EXPECT_EQ(DeviceOfPort(c.port, pins, devices), c.device) << "port " << c.port;
}

TEST(PortDevices, UsbAdaptersComeFirstAndNumbersCountAsNumbers) {
  using enum DeviceKind;
  const auto order = InPortOrder({{"/dev/ttyS1", BuiltIn},
                                  {"/dev/rfcomm0", Other},
                                  {"/dev/ttyUSB10", UsbAdapter},
                                  {"/dev/ttyS0", BuiltIn},
                                  {"/dev/ttyUSB2", UsbAdapter},
                                  {"/dev/ttyUSB", UsbAdapter},
                                  {"/dev/ttyACM3", UsbAdapter}});
  const std::vector<std::string> expected = {"/dev/ttyACM3", "/dev/ttyUSB", "/dev/ttyUSB2", "/dev/ttyUSB10",
                                             "/dev/ttyS0",   "/dev/ttyS1",  "/dev/rfcomm0"};
  EXPECT_EQ(order, expected);
}

// A copy of how the system describes its terminals.
class DescribedDevices : public testing::Test {
protected:
  void SetUp() override {
    m_root = fs::path(testing::TempDir()) / "mr4500x_terminals";
    fs::remove_all(m_root);
    Add("ttyUSB0", "devices/pci0000:00/usb1/1-1/1-1:1.0/ttyUSB0", "");
    Add("ttyS0", "devices/pnp0/00:04", "4\n");
    Add("ttyS1", "devices/platform/serial8250", "0\n");
    Add("ttyAMA0", "devices/platform/soc/uart0", "32\n");
    fs::create_directories(m_root / "tty" / "rfcomm0");
  }
  void TearDown() override { fs::remove_all(m_root); }

  void Add(const std::string& name, const std::string& hardware, const std::string& uartType) {
    fs::create_directories(m_root / hardware);
    fs::create_directories(m_root / "tty" / name);
    fs::create_directory_symlink(m_root / hardware, m_root / "tty" / name / "device");
    if (!uartType.empty()) std::ofstream(m_root / "tty" / name / "type") << uartType;
  }

  fs::path m_root;
};

TEST_F(DescribedDevices, AreToldApartAndSpareOnesLeftOut) {
  struct Case {
    const char* name;
    std::optional<DeviceKind> kind;
  };
  const Case cases[] = {{"ttyUSB0", DeviceKind::UsbAdapter},
                        {"ttyS0", DeviceKind::BuiltIn},
                        {"ttyS1", std::nullopt},
                        {"ttyAMA0", DeviceKind::BuiltIn},
                        {"rfcomm0", DeviceKind::Other},
                        {"cu.usbserial-1410", DeviceKind::UsbAdapter}};
  for (const Case& c : cases) {
    const auto device = DescribeDevice(m_root / "tty", c.name);
    ASSERT_EQ(device.has_value(), c.kind.has_value()) << c.name;
    if (!device) continue;
    EXPECT_EQ(device->kind, *c.kind) << c.name;
    EXPECT_EQ(device->path, std::string("/dev/") + c.name);
  }
}

} // namespace
} // namespace mr4500x
