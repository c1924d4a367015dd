// The serial port over a real pseudo-terminal, whose other end the test holds.
#include "machine_port.h"
#include "processes.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cstdarg>
#include <filesystem>
#include <fstream>
#include <set>

#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <termios.h>
#include <unistd.h>

namespace {
int drained = 0;            // how often a port has waited for its hardware
std::set<int> loweredLines; // the control lines that it has lowered
tcflag_t parity = 0;        // the parity that was set; a pseudo-terminal does not keep it
} // namespace
// In place of the C library's; a pseudo-terminal has no control lines.
extern "C" int tcdrain(int /*file*/) {
  return ++drained, 0;
}
extern "C" int tcsetattr(int file, int when, const termios* line) noexcept {
  if ((line->c_cflag & PARENB) != 0) parity = line->c_cflag & (PARENB | PARODD);
  return reinterpret_cast<decltype(&tcsetattr)>(dlsym(RTLD_NEXT, "tcsetattr"))(file, when, line);
}
extern "C" int ioctl(int file, unsigned long request, ...) noexcept {
  va_list arguments;
  va_start(arguments, request);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  if (request != TIOCMBIC) return static_cast<int>(syscall(SYS_ioctl, file, request, argument));
  loweredLines.insert(*static_cast<int*>(argument));
  return 0;
}

namespace mr4500x {
namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr LineSettings Line = {9600, Parity::Odd, 8, 2};
constexpr int LimitMilliseconds = 5000; // limit for operations that normally finish at once

class SerialPortTest : public testing::Test {
protected:
  void SetUp() override {
    std::array<char, 128> name{};
    termios raw{};
    cfmakeraw(&raw);
    ASSERT_EQ(openpty(&m_master, &m_slave, name.data(), &raw, nullptr), 0);
    m_device = name.data();
    fcntl(m_master, F_SETFL, O_NONBLOCK);
    m_port = MakeSerialPort(m_device);
  }
  void TearDown() override {
    m_port.reset(); // first: while it holds its lock, the device's name must not pass to another test's
    HangUp();
    close(m_slave);
  }
  void Open() { ASSERT_EQ(m_port->Open(Line), std::nullopt); }
  void HangUp() {
    if (m_master >= 0) close(m_master);
    m_master = -1;
  }
  // The radio's end sends, and the driver at the computer's end has it.
  void Arrive(const Bytes& bytes) {
    ASSERT_EQ(write(m_master, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    pollfd state{m_slave, POLLIN, 0};
    ASSERT_EQ(poll(&state, 1, LimitMilliseconds), 1);
  }
  int m_master = -1;
  int m_slave = -1;
  std::string m_device;
  std::unique_ptr<SerialPort> m_port;
};

TEST_F(SerialPortTest, TheProgramThatUsesADeviceIsKnownByItsName) {
  std::string self;
  std::getline(std::ifstream("/proc/self/comm"), self);
  EXPECT_EQ(UserOfDevice(m_device), self);
  EXPECT_EQ(UserOfDevice("/dev/no such device") + UserOfDevice("/proc/self/comm"), "");
}

TEST_F(SerialPortTest, ReceivesWithoutAnApplicationAndWithoutAWord) {
  testing::internal::CaptureStderr();
  Open();
  Arrive({0x57, 0x00, 0xFF});
  EXPECT_EQ(m_port->BytesReceived(), 3U); // now with Qt
  Arrive({0x11, 0x13});                   // flow control characters are plain bytes
  EXPECT_EQ(m_port->TakeReceived(), (Bytes{0x57, 0x00, 0xFF, 0x11, 0x13}));
  Arrive({1, 2, 3});
  EXPECT_EQ(m_port->BytesReceived(), 3U);
  Arrive({4, 5}); // still with the driver
  EXPECT_TRUE(m_port->DiscardReceived());
  EXPECT_EQ(m_port->TakeReceived(), Bytes());
  Arrive(Bytes(2000, 0x55)); // more than one of Qt's portions
  EXPECT_EQ(m_port->TakeReceived(), Bytes(2000, 0x55));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_TRUE(QLoggingCategory::defaultCategory()->isWarningEnabled()) << "opening switches Qt's own warnings off";
}

TEST_F(SerialPortTest, DiscardsOnlyWhatTheDriverHasNotTaken) {
  Open();
  const Bytes much(1'000'000, 0x55);
  ASSERT_TRUE(m_port->Write(much));
  const std::size_t waiting = m_port->BytesToTransmit().value_or(0);
  ASSERT_TRUE(waiting > 0 && waiting < much.size()) << waiting;
  EXPECT_TRUE(m_port->DiscardTransmit());
  EXPECT_EQ(m_port->BytesToTransmit(), 0U);
  ASSERT_TRUE(m_port->Write(Bytes{0x99}));
  Bytes left;
  std::array<std::uint8_t, 4096> buffer{};
  pollfd state{m_master, POLLIN, 0};
  while ((left.empty() || left.back() != 0x99) && poll(&state, 1, LimitMilliseconds) == 1) {
    const ssize_t count = read(m_master, buffer.data(), buffer.size());
    left.insert(left.end(), buffer.begin(), buffer.begin() + std::max<ssize_t>(count, 0));
    ASSERT_TRUE(m_port->BytesToTransmit()); // also passes bytes to the driver
  }
  EXPECT_EQ(left.size(), much.size() - waiting + 1);
}

TEST_F(SerialPortTest, EveryOperationFailsOnceTheOtherEndIsGone) {
  const auto work = [&] { // first the discarding: it alone does nothing with the device
    return std::vector<bool>{m_port->DiscardTransmit(), m_port->BytesReceived().has_value(),
                             m_port->DiscardReceived(), m_port->BytesToTransmit().has_value(),
                             m_port->Write(Bytes{1}),   m_port->TakeReceived().has_value()};
  };
  EXPECT_EQ(work(), std::vector<bool>(6, false)) << "before it was opened";
  Open();
  EXPECT_EQ(work(), std::vector<bool>(6, true));
  HangUp();
  EXPECT_EQ(work(), std::vector<bool>(6, false));
  EXPECT_TRUE(m_port->IsOpen());
  m_port->Close();
  EXPECT_FALSE(m_port->IsOpen());
}

TEST_F(SerialPortTest, IsReadyAgainWithoutOldBytesWhenItsDeviceIsBack) {
  const auto port = MakeSerialPort([&](int) { return PortDevice{m_device}; });
  ASSERT_EQ(port->Open(Line), std::nullopt);
  EXPECT_TRUE(port->Write(Bytes(1'000'000)));
  HangUp();
  EXPECT_FALSE(port->BytesToTransmit());
  close(m_slave);
  SetUp();
  ASSERT_EQ(port->Open(Line), std::nullopt);
  EXPECT_EQ(port->BytesToTransmit(), 0U);
}

TEST_F(SerialPortTest, SetsUpTheLineAsRequestedAndDrainsIt) {
  m_port->AwaitSent();
  EXPECT_EQ(drained, 0) << "before it was opened";
  for (const bool rts : {true, false})
    for (const bool dtr : {true, false}) {
      loweredLines.clear();
      drained = 0;
      const auto port = MakeSerialPort([&](int) { return PortDevice{m_device, rts, dtr}; });
      ASSERT_EQ(port->Open(Line), std::nullopt);
      EXPECT_EQ(loweredLines.contains(TIOCM_RTS), !rts);
      EXPECT_EQ(loweredLines.contains(TIOCM_DTR), !dtr);
      termios line{};
      ASSERT_EQ(tcgetattr(m_slave, &line), 0);
      EXPECT_EQ(cfgetospeed(&line), B9600);
      EXPECT_NE(line.c_cflag & CSTOPB, 0U);
      EXPECT_EQ(parity, PARENB | PARODD);
      port->AwaitSent();
      EXPECT_EQ(drained, 1);
    }
  for (const auto& [asked, flags] : {std::pair(Parity::Even, PARENB), {Parity::None, 0}}) {
    parity = 0;
    ASSERT_EQ(m_port->Open({4800, asked, 8, 1}), std::nullopt);
    EXPECT_EQ(parity, static_cast<tcflag_t>(flags));
  }
  termios line{};
  ASSERT_EQ(tcgetattr(m_slave, &line), 0);
  EXPECT_EQ(cfgetospeed(&line), B4800);
  EXPECT_EQ(line.c_cflag & CSTOPB, 0U);
}

TEST_F(SerialPortTest, SaysWhyItDoesNotOpen) {
  for (const char* const device : {"/dev/no-such-device", "/dev/null", ""}) {
    const auto port = MakeSerialPort([&](int number) { return PortDevice{number == 7 ? device : m_device}; });
    port->SetPortNumber(7);
    const auto description = port->Open(Line);
    EXPECT_GT(description.value_or("").size(), 5U) << device;
    EXPECT_FALSE(port->IsOpen()) << device;
  }
}

TEST_F(SerialPortTest, KeepsADeviceToItselfUnderEveryName) {
  const std::string link = testing::TempDir() + "mr4500x_port_link";
  std::filesystem::remove(link);
  std::filesystem::create_symlink(m_device, link);
  for (const std::string& name : {m_device, link, std::filesystem::relative(link).string()}) {
    EXPECT_EQ(MakeSerialPort(name)->Open(Line), std::nullopt) << name;
    Open();
    EXPECT_NE(MakeSerialPort(name)->Open(Line), std::nullopt) << name;
    m_port->Close();
  }
  std::filesystem::remove(link);
}

} // namespace
} // namespace mr4500x
