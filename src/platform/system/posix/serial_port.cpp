#include "machine_port.h"

#include <QAbstractEventDispatcher>
#include <QLoggingCategory>
#include <QSerialPort>

#include <cerrno>
#include <filesystem>
#include <mutex>

#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace mr4500x {
namespace {

QSerialPort::Parity ParityOf(Parity parity) {
  if (parity == Parity::Odd) return QSerialPort::OddParity;
  return parity == Parity::Even ? QSerialPort::EvenParity : QSerialPort::NoParity;
}

// Opening has raised the two control lines.
bool Apply(const LineSettings& line, const PortDevice& device, QSerialPort& port) {
  bool taken = port.setBaudRate(line.baud);
  taken = port.setDataBits(static_cast<QSerialPort::DataBits>(line.dataBits)) && taken;
  taken = port.setParity(ParityOf(line.parity)) && taken;
  taken = port.setStopBits(line.stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop) && taken;
  taken = port.setFlowControl(QSerialPort::NoFlowControl) && taken;
  taken = (device.rts || port.setRequestToSend(false)) && taken;
  return (device.dtr || port.setDataTerminalReady(false)) && taken;
}

// Resolves links, because the lock file that keeps other programs out is named after the real device. A bare name is
// unchanged and a relative path becomes absolute, because Qt would look for either in /dev.
std::string OwnPath(const std::string& device) {
  if (device.find('/') == std::string::npos) return device;
  std::error_code error;
  const std::string path = std::filesystem::weakly_canonical(device, error).string();
  return error ? device : path;
}

// Qt reports a port in use by another program as a permission error, which misleads the user.
std::string OpenFailure(const QSerialPort& port, const std::string& device) {
  const bool isHeld = port.error() == QSerialPort::PermissionError && access(device.c_str(), R_OK | W_OK) == 0;
  if (isHeld) return std::make_error_code(std::errc::device_or_resource_busy).message();
  return port.errorString().toStdString();
}

// Writes without blocking. Returns the number of bytes taken, possibly 0, or nullopt if the device failed.
std::optional<std::size_t> HandToDriver(int device, std::span<const std::uint8_t> bytes) {
  std::size_t taken = 0;
  while (taken < bytes.size()) {
    const ssize_t count = write(device, bytes.data() + taken, bytes.size() - taken);
    if (count > 0)
      taken += static_cast<std::size_t>(count);
    else if (count == 0 || errno == EAGAIN)
      break;
    else if (errno != EINTR)
      return std::nullopt;
  }
  return taken;
}

// Whether the device is gone: an adapter unplugged, the other end of a pseudo-terminal closed.
bool HasHungUp(int device) {
  pollfd state{device, POLLIN, 0};
  if (poll(&state, 1, 0) < 0) return errno != EINTR;
  return (state.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

// Suppresses Qt's warnings about socket notifiers in a thread without an event dispatcher, which does not need them.
// The logging category is global, so the last of several threads restores it.
class NotifierWarningsOff {
public:
  NotifierWarningsOff() : m_isNeeded(QAbstractEventDispatcher::instance() == nullptr) {
    if (!m_isNeeded) return;
    const std::lock_guard lock(s_mutex);
    if (s_holders++ == 0) {
      s_wasEnabled = Category().isWarningEnabled();
      Category().setEnabled(QtWarningMsg, false);
    }
  }
  ~NotifierWarningsOff() {
    if (!m_isNeeded) return;
    const std::lock_guard lock(s_mutex);
    if (--s_holders == 0) Category().setEnabled(QtWarningMsg, s_wasEnabled);
  }
  Q_DISABLE_COPY_MOVE(NotifierWarningsOff)

private:
  static QLoggingCategory& Category() { return *QLoggingCategory::defaultCategory(); }

  static inline std::mutex s_mutex;
  static inline int s_holders = 0;
  static inline bool s_wasEnabled = false;

  const bool m_isNeeded;
};

class QtSerialPort final : public SerialPort {
public:
  explicit QtSerialPort(DeviceLookup lookup);

  void SetPortNumber(int number) override { m_number = number; }
  [[nodiscard]] std::optional<std::string> Open(const LineSettings& settings) override;
  void Close() override;
  [[nodiscard]] bool IsOpen() const override;

  [[nodiscard]] std::optional<std::size_t> BytesReceived() override;
  [[nodiscard]] bool DiscardReceived() override;
  [[nodiscard]] std::optional<std::size_t> BytesToTransmit() override;
  [[nodiscard]] bool DiscardTransmit() override;
  [[nodiscard]] bool Write(std::span<const std::uint8_t> bytes) override;
  void AwaitSent() override;
  [[nodiscard]] std::optional<std::vector<std::uint8_t>> TakeReceived() override;

private:
  [[nodiscard]] bool IsUsable();      // open and not failed
  [[nodiscard]] bool FetchReceived(); // moves received bytes into Qt's buffer
  [[nodiscard]] bool PushUnsent();    // passes on what the driver takes of m_unsent

  DeviceLookup m_lookup;
  std::unique_ptr<QSerialPort> m_port;
  // Bytes that the driver has not taken. Kept here because Qt can only clear its own write buffer together with the
  // driver's queue, whose bytes must still be sent.
  std::vector<std::uint8_t> m_unsent;
  int m_number = 1;
  bool m_failed = false;
};

} // namespace

QtSerialPort::QtSerialPort(DeviceLookup lookup)
    : m_lookup(std::move(lookup)), m_port(std::make_unique<QSerialPort>()) {}

std::optional<std::string> QtSerialPort::Open(const LineSettings& settings) {
  Close();
  const PortDevice found = m_lookup(m_number);
  const std::string device = OwnPath(found.path);
  if (device.empty()) return std::make_error_code(std::errc::no_such_device).message();

  const NotifierWarningsOff quiet;
  m_port->setPortName(QString::fromStdString(device));
  if (!m_port->open(QIODevice::ReadWrite)) return OpenFailure(*m_port, device);
  // Set after opening: a pseudo-terminal may refuse settings that it does not need.
  if (!Apply(settings, found, *m_port) && !device.starts_with("/dev/pts/")) {
    const std::string description = m_port->errorString().toStdString();
    Close();
    return description;
  }
  return std::nullopt;
}

void QtSerialPort::Close() {
  m_unsent.clear();
  m_failed = false;
  if (m_port->isOpen()) m_port->close();
}

bool QtSerialPort::IsOpen() const {
  return m_port->isOpen();
}

bool QtSerialPort::IsUsable() {
  if (!m_port->isOpen()) return false;
  m_failed = m_failed || HasHungUp(static_cast<int>(m_port->handle()));
  return !m_failed;
}

bool QtSerialPort::FetchReceived() {
  if (!IsUsable()) return false;
  m_port->clearError();
  // Up to 512 bytes a round. Bounded, so that a babbling device can't hang the caller.
  constexpr int MostRounds = 64;
  for (int round = 0; round < MostRounds && m_port->waitForReadyRead(0); ++round) {
  }
  const QSerialPort::SerialPortError error = m_port->error();
  m_failed = error != QSerialPort::NoError && error != QSerialPort::TimeoutError;
  return !m_failed;
}

bool QtSerialPort::PushUnsent() {
  if (!IsUsable()) return false;
  const auto taken = HandToDriver(static_cast<int>(m_port->handle()), m_unsent);
  m_failed = !taken.has_value();
  if (taken) m_unsent.erase(m_unsent.begin(), m_unsent.begin() + static_cast<std::ptrdiff_t>(*taken));
  return !m_failed;
}

std::optional<std::size_t> QtSerialPort::BytesReceived() {
  if (!FetchReceived()) return std::nullopt;
  return static_cast<std::size_t>(m_port->bytesAvailable());
}

bool QtSerialPort::DiscardReceived() {
  if (!IsUsable()) return false;
  m_failed = !m_port->clear(QSerialPort::Input);
  return !m_failed;
}

std::optional<std::size_t> QtSerialPort::BytesToTransmit() {
  if (!PushUnsent()) return std::nullopt;
  int queued = 0; // bytes that the driver has not sent yet
  m_failed = ioctl(static_cast<int>(m_port->handle()), TIOCOUTQ, &queued) != 0;
  if (m_failed) return std::nullopt;
  return static_cast<std::size_t>(std::max(queued, 0)) + m_unsent.size();
}

bool QtSerialPort::DiscardTransmit() {
  if (!IsUsable()) return false;
  m_unsent.clear();
  return true;
}

bool QtSerialPort::Write(std::span<const std::uint8_t> bytes) {
  if (!IsUsable()) return false;
  m_unsent.insert(m_unsent.end(), bytes.begin(), bytes.end());
  return PushUnsent();
}

void QtSerialPort::AwaitSent() {
  if (IsUsable()) tcdrain(static_cast<int>(m_port->handle()));
}

std::optional<std::vector<std::uint8_t>> QtSerialPort::TakeReceived() {
  if (!FetchReceived()) return std::nullopt;
  const QByteArray bytes = m_port->readAll();
  return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
}

std::unique_ptr<SerialPort> MakeSerialPort(DeviceLookup lookup) {
  return std::make_unique<QtSerialPort>(std::move(lookup));
}
std::unique_ptr<SerialPort> MakeSerialPort(const std::string& device) {
  return MakeSerialPort([device](int) { return PortDevice{device}; });
}

} // namespace mr4500x
