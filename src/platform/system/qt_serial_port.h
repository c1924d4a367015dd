#pragma once

#include "port_devices.h"
#include "serial_port.h"

#include <functional>
#include <memory>

class QSerialPort;

namespace mr4500x {

// Needs neither an application object nor an event loop: each operation polls the device.
class QtSerialPort final : public SerialPort {
public:
  using DeviceLookup = std::function<PortDevice(int)>; // of a port number

  explicit QtSerialPort(DeviceLookup lookup);
  explicit QtSerialPort(std::string device); // for every port number
  ~QtSerialPort() override;

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

} // namespace mr4500x
