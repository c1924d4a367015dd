#include "qt_serial_port.h"

#include "driver_queue.h"

#include <QAbstractEventDispatcher>
#include <QLoggingCategory>
#include <QSerialPort>

#include <unistd.h>

#include <charconv>
#include <filesystem>
#include <system_error>

namespace mr4500x {
namespace {

struct LineParameters {
  qint32 baud = 0;
  QSerialPort::Parity parity = QSerialPort::NoParity;
  QSerialPort::DataBits dataBits = QSerialPort::Data8;
  QSerialPort::StopBits stopBits = QSerialPort::OneStop;
};

std::optional<QSerialPort::Parity> ParityOf(std::string_view text) {
  if (text == "N") return QSerialPort::NoParity;
  if (text == "O") return QSerialPort::OddParity;
  if (text == "E") return QSerialPort::EvenParity;
  if (text == "M") return QSerialPort::MarkParity;
  if (text == "S") return QSerialPort::SpaceParity;
  return std::nullopt;
}

std::optional<QSerialPort::StopBits> StopBitsOf(std::string_view text) {
  if (text == "1") return QSerialPort::OneStop;
  if (text == "1.5") return QSerialPort::OneAndHalfStop;
  if (text == "2") return QSerialPort::TwoStop;
  return std::nullopt;
}

// "baud,parity,data bits,stop bits", for example "9600,O,8,2".
std::optional<LineParameters> ParseLineSettings(std::string_view text) {
  std::array<std::string_view, 4> fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::size_t comma = text.find(',');
    const bool isLast = i + 1 == fields.size();
    if ((comma == std::string_view::npos) != isLast) return std::nullopt;
    fields[i] = text.substr(0, comma);
    if (!isLast) text.remove_prefix(comma + 1);
  }
  LineParameters line;
  const char* const baudEnd = fields[0].data() + fields[0].size();
  const auto [end, error] = std::from_chars(fields[0].data(), baudEnd, line.baud);
  const auto parity = ParityOf(fields[1]);
  const auto stopBits = StopBitsOf(fields[3]);
  const bool hasDataBits = fields[2].size() == 1 && fields[2][0] >= '5' && fields[2][0] <= '8';
  if (error != std::errc() || end != baudEnd || line.baud <= 0 || !parity || !stopBits || !hasDataBits) {
    return std::nullopt;
  }
  line.parity = *parity;
  line.dataBits = static_cast<QSerialPort::DataBits>(fields[2][0] - '0');
  line.stopBits = *stopBits;
  return line;
}

bool Apply(const LineParameters& line, QSerialPort& port) {
  bool taken = port.setBaudRate(line.baud);
  taken = port.setDataBits(line.dataBits) && taken;
  taken = port.setParity(line.parity) && taken;
  taken = port.setStopBits(line.stopBits) && taken;
  return port.setFlowControl(QSerialPort::NoFlowControl) && taken;
}

// The device's own path, links followed: the lock file that keeps other programs off is named after it. A bare name
// stays one, and a relative path becomes absolute, as Qt looks for both among the system's devices.
std::string OwnPath(const std::string& device) {
  if (device.find('/') == std::string::npos) return device;
  std::error_code error;
  const std::string path = std::filesystem::weakly_canonical(device, error).string();
  return error ? device : path;
}

// Qt calls a port that another program holds a matter of permission, and sends its reader looking in the wrong place.
std::string OpenFailure(const QSerialPort& port, const std::string& device) {
  const bool isHeld = port.error() == QSerialPort::PermissionError && access(device.c_str(), R_OK | W_OK) == 0;
  if (isHeld) return std::make_error_code(std::errc::device_or_resource_busy).message();
  return port.errorString().toStdString();
}

// A thread without an event dispatcher has no use for notifiers, and Qt warns of each that it makes all the same.
class NotifierWarningsOff {
public:
  NotifierWarningsOff() {
    if (QAbstractEventDispatcher::instance() != nullptr) return;
    m_category = QLoggingCategory::defaultCategory();
    m_wasEnabled = m_category->isWarningEnabled();
    m_category->setEnabled(QtWarningMsg, false);
  }
  ~NotifierWarningsOff() {
    if (m_category != nullptr) m_category->setEnabled(QtWarningMsg, m_wasEnabled);
  }
  NotifierWarningsOff(const NotifierWarningsOff&) = delete;
  NotifierWarningsOff& operator=(const NotifierWarningsOff&) = delete;

private:
  QLoggingCategory* m_category = nullptr;
  bool m_wasEnabled = false;
};

} // namespace

QtSerialPort::QtSerialPort(DeviceLookup lookup)
    : m_lookup(std::move(lookup)), m_port(std::make_unique<QSerialPort>()) {}

QtSerialPort::QtSerialPort(std::string device)
    : QtSerialPort(DeviceLookup([path = std::move(device)](int) { return path; })) {}

QtSerialPort::~QtSerialPort() = default;

void QtSerialPort::SetPortNumber(int number) {
  m_number = number;
}

std::optional<std::string> QtSerialPort::Open(const char* settings) {
  Close();
  const std::optional<LineParameters> line = ParseLineSettings(settings);
  if (!line) return std::make_error_code(std::errc::invalid_argument).message();
  const std::string device = OwnPath(m_lookup(m_number));
  if (device.empty()) return std::make_error_code(std::errc::no_such_device).message();

  const NotifierWarningsOff quiet;
  m_port->setPortName(QString::fromStdString(device));
  if (!m_port->open(QIODevice::ReadWrite)) return OpenFailure(*m_port, device);
  // Applied to the open device, as a pseudo-terminal may refuse settings that mean nothing to it and works without.
  if (!Apply(*line, *m_port) && !device.starts_with("/dev/pts/")) {
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
  // Each round fetches up to 512 bytes. Bounded, so that an endless sender can't hold the caller here.
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
  const auto queued = DriverQueueLength(static_cast<int>(m_port->handle()));
  m_failed = !queued.has_value();
  if (m_failed) return std::nullopt;
  return *queued + m_unsent.size();
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

std::optional<std::vector<std::uint8_t>> QtSerialPort::TakeReceived() {
  if (!FetchReceived()) return std::nullopt;
  const QByteArray bytes = m_port->readAll();
  return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
}

} // namespace mr4500x
