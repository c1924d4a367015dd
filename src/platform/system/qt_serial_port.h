// The serial port over Qt's. It needs neither an application object nor a running event loop: each operation asks the
// device itself, so nothing has to be delivered in between.
#pragma once

#include "serial_port.h"

#include <functional>
#include <memory>

class QSerialPort;

namespace mr4500x {

class QtSerialPort final : public SerialPort {
public:
  // The path of the device that stands for a port number; empty for none.
  using DeviceLookup = std::function<std::string(int)>;

  explicit QtSerialPort(DeviceLookup lookup);
  explicit QtSerialPort(std::string device); // whatever the port number
  ~QtSerialPort() override;

  void SetPortNumber(int number) override;
  [[nodiscard]] std::optional<std::string> Open(const LineSettings& settings) override;
  void Close() override;
  [[nodiscard]] bool IsOpen() const override;

  [[nodiscard]] std::optional<std::size_t> BytesReceived() override;
  [[nodiscard]] bool DiscardReceived() override;
  [[nodiscard]] std::optional<std::size_t> BytesToTransmit() override;
  [[nodiscard]] bool DiscardTransmit() override;
  [[nodiscard]] bool Write(std::span<const std::uint8_t> bytes) override;
  [[nodiscard]] std::optional<std::vector<std::uint8_t>> TakeReceived() override;

private:
  [[nodiscard]] bool IsUsable();      // open, and not failed up to now
  [[nodiscard]] bool FetchReceived(); // moves what the driver received into Qt's buffer
  [[nodiscard]] bool PushUnsent();    // hands what the driver takes of m_unsent to it

  DeviceLookup m_lookup;
  std::unique_ptr<QSerialPort> m_port;
  // What the driver has not taken yet. Kept here, as Qt can't empty its write buffer without flushing the driver's
  // queue along with it, and that would lose bytes that were meant to go.
  std::vector<std::uint8_t> m_unsent;
  int m_number = 1;
  bool m_failed = false;
};

} // namespace mr4500x
