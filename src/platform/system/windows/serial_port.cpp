#include "machine_port.h"

#include "wide_text.h"

#include <system_error>
#include <utility>

#include <windows.h>

namespace mr4500x {
namespace {

constexpr DWORD QueueBytes = 4096;
constexpr DWORD SentMilliseconds = 2000; // time for the bytes that were passed to the driver

DCB BlockOf(const LineSettings& line, const PortDevice& device) {
  DCB block{};
  block.DCBlength = sizeof block;
  block.BaudRate = static_cast<DWORD>(line.baud);
  block.fBinary = TRUE;
  block.ByteSize = static_cast<BYTE>(line.dataBits);
  block.fParity = line.parity == Parity::None ? FALSE : TRUE;
  block.Parity = line.parity == Parity::None ? NOPARITY : line.parity == Parity::Odd ? ODDPARITY : EVENPARITY;
  block.StopBits = line.stopBits == 2 ? TWOSTOPBITS : ONESTOPBIT;
  block.fRtsControl = device.rts ? RTS_CONTROL_ENABLE : RTS_CONTROL_DISABLE;
  block.fDtrControl = device.dtr ? DTR_CONTROL_ENABLE : DTR_CONTROL_DISABLE;
  return block;
}

std::string ReasonOf(DWORD error) {
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND)
    return std::make_error_code(std::errc::no_such_device).message();
  // Windows reports a port in use by another program as a permission error, which misleads the user.
  if (error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION) return "The port is in use by another program";
  return std::system_category().message(static_cast<int>(error));
}

// An overlapped operation and its event.
class Operation {
public:
  Operation() { m_overlapped.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr); }
  ~Operation() { CloseHandle(m_overlapped.hEvent); }
  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;

  [[nodiscard]] OVERLAPPED* Begin() {
    m_overlapped.Offset = m_overlapped.OffsetHigh = 0;
    ResetEvent(m_overlapped.hEvent);
    return &m_overlapped;
  }
  // The number of bytes transferred, or nullopt if it has failed or is still running.
  [[nodiscard]] std::optional<std::size_t> Result(HANDLE port, BOOL waits) {
    DWORD count = 0;
    if (GetOverlappedResult(port, &m_overlapped, &count, waits) == FALSE) return std::nullopt;
    return count;
  }
  [[nodiscard]] bool AwaitEnd(DWORD milliseconds) {
    return WaitForSingleObject(m_overlapped.hEvent, milliseconds) == WAIT_OBJECT_0;
  }

private:
  OVERLAPPED m_overlapped{};
};

// Uses overlapped operations and polls them. No operation waits for the line, except AwaitSent and Close.
class WindowsSerialPort final : public SerialPort {
public:
  explicit WindowsSerialPort(DeviceLookup lookup) : m_lookup(std::move(lookup)) {}
  ~WindowsSerialPort() override { Close(); }
  WindowsSerialPort(const WindowsSerialPort&) = delete;
  WindowsSerialPort& operator=(const WindowsSerialPort&) = delete;

  void SetPortNumber(int number) override { m_number = number; }
  [[nodiscard]] bool IsOpen() const override { return m_port != INVALID_HANDLE_VALUE; }

  [[nodiscard]] std::optional<std::string> Open(const LineSettings& settings) override {
    Close();
    const PortDevice found = m_lookup(m_number);
    if (found.path.empty()) return std::make_error_code(std::errc::no_such_device).message();
    // Without the prefix only COM1 to COM9 are names of ports.
    const std::wstring name = (found.path.starts_with('\\') ? L"" : LR"(\\.\)") + Wide(found.path);
    m_port = CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED,
                         nullptr);
    if (!IsOpen()) return ReasonOf(GetLastError());
    m_isUsable = SetUp(BlockOf(settings, found));
    if (m_isUsable) return std::nullopt;
    const DWORD error = GetLastError();
    Close();
    return ReasonOf(error);
  }

  void Close() override {
    if (!IsOpen()) return;
    if (m_isWriting && !m_write.AwaitEnd(SentMilliseconds)) {
      CancelIo(m_port);
      static_cast<void>(m_write.Result(m_port, TRUE)); // the driver still uses the bytes
    }
    CloseHandle(std::exchange(m_port, INVALID_HANDLE_VALUE));
    m_isUsable = m_isWriting = false;
    m_received.clear();
    m_unsent.clear();
  }

  [[nodiscard]] std::optional<std::size_t> BytesReceived() override {
    return Fetch() ? std::optional(m_received.size()) : std::nullopt;
  }
  [[nodiscard]] std::optional<std::vector<std::uint8_t>> TakeReceived() override {
    return Fetch() ? std::optional(std::exchange(m_received, {})) : std::nullopt;
  }
  [[nodiscard]] bool DiscardReceived() override {
    m_received.clear();
    m_isUsable = m_isUsable && PurgeComm(m_port, PURGE_RXCLEAR) != FALSE;
    return m_isUsable;
  }

  [[nodiscard]] std::optional<std::size_t> BytesToTransmit() override {
    COMSTAT state{};
    if (!Push() || !Query(state)) return std::nullopt;
    // Drivers differ in whether the bytes of a write in progress are in their queue.
    return std::max<std::size_t>(state.cbOutQue, m_isWriting ? m_writing.size() : 0) + m_unsent.size();
  }
  [[nodiscard]] bool DiscardTransmit() override {
    m_unsent.clear();
    return m_isUsable;
  }
  [[nodiscard]] bool Write(std::span<const std::uint8_t> bytes) override {
    if (m_isUsable) m_unsent.insert(m_unsent.end(), bytes.begin(), bytes.end());
    return Push();
  }
  void AwaitSent() override {
    if (m_isUsable && (!m_isWriting || m_write.AwaitEnd(SentMilliseconds))) FlushFileBuffers(m_port);
  }

private:
  [[nodiscard]] bool SetUp(DCB block) {
    // Reads return at once with the available bytes.
    COMMTIMEOUTS timeouts{MAXDWORD, 0, 0, 0, 0};
    return SetupComm(m_port, QueueBytes, QueueBytes) != FALSE && SetCommState(m_port, &block) != FALSE &&
           SetCommTimeouts(m_port, &timeouts) != FALSE;
  }

  [[nodiscard]] bool Query(COMSTAT& state) {
    DWORD errors = 0; // parity errors and the like, which are ignored
    m_isUsable = m_isUsable && ClearCommError(m_port, &errors, &state) != FALSE;
    return m_isUsable;
  }

  // Moves the bytes that the driver has received to m_received.
  [[nodiscard]] bool Fetch() {
    COMSTAT state{};
    if (!Query(state)) return false;
    if (state.cbInQue == 0) return true;
    const std::size_t before = m_received.size();
    m_received.resize(before + state.cbInQue);
    const BOOL isDone = ::ReadFile(m_port, m_received.data() + before, state.cbInQue, nullptr, m_read.Begin());
    std::optional<std::size_t> count;
    if (isDone != FALSE || GetLastError() == ERROR_IO_PENDING) count = m_read.Result(m_port, TRUE);
    m_received.resize(before + count.value_or(0));
    m_isUsable = count.has_value();
    return m_isUsable;
  }

  // Passes further bytes to the driver once it has taken the previous ones.
  [[nodiscard]] bool Push() {
    if (!m_isUsable) return false;
    if (m_isWriting) {
      if (!m_write.AwaitEnd(0)) return true;
      m_isWriting = false;
      m_isUsable = m_write.Result(m_port, FALSE) == m_writing.size();
    }
    if (!m_isUsable || m_unsent.empty()) return m_isUsable;
    m_writing = std::exchange(m_unsent, {});
    const auto count = static_cast<DWORD>(m_writing.size());
    m_isWriting = ::WriteFile(m_port, m_writing.data(), count, nullptr, m_write.Begin()) != FALSE ||
                  GetLastError() == ERROR_IO_PENDING;
    m_isUsable = m_isWriting;
    return m_isUsable;
  }

  DeviceLookup m_lookup;
  int m_number = 1;
  HANDLE m_port = INVALID_HANDLE_VALUE;
  bool m_isUsable = false; // open, and no operation has failed
  Operation m_read, m_write;
  bool m_isWriting = false;
  std::vector<std::uint8_t> m_received, m_unsent;
  std::vector<std::uint8_t> m_writing; // the bytes that the driver is writing
};

} // namespace

std::unique_ptr<SerialPort> MakeSerialPort(DeviceLookup lookup) {
  return std::make_unique<WindowsSerialPort>(std::move(lookup));
}
std::unique_ptr<SerialPort> MakeSerialPort(const std::string& device) {
  return MakeSerialPort([device](int) { return PortDevice{device}; });
}

} // namespace mr4500x
