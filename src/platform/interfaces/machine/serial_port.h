// The serial port as the radio exchanges see it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mr4500x {

enum class Parity : std::uint8_t { None, Odd, Even };

struct LineSettings {
  int baud;
  Parity parity;
  int dataBits;
  int stopBits;
  bool operator==(const LineSettings&) const = default;
};

// Every operation answers false or nothing once the port has failed (it vanished, the driver refused); the port
// then stays open until Close.
class SerialPort {
public:
  virtual ~SerialPort() = default;

  // Chooses the device that the next Open takes: port n is COMn, or what stands for it on this machine.
  virtual void SetPortNumber(int number) = 0;
  // Opens without handshaking; on failure the operating system's description, else nothing.
  [[nodiscard]] virtual std::optional<std::string> Open(const LineSettings& settings) = 0;
  virtual void Close() = 0;
  [[nodiscard]] virtual bool IsOpen() const = 0;

  [[nodiscard]] virtual std::optional<std::size_t> BytesReceived() = 0; // waiting to be taken
  [[nodiscard]] virtual bool DiscardReceived() = 0;
  // Written bytes that have not left the computer, the driver's queue included.
  [[nodiscard]] virtual std::optional<std::size_t> BytesToTransmit() = 0;
  // Forgets bytes not yet handed to the driver. What the driver holds was meant to go and goes.
  [[nodiscard]] virtual bool DiscardTransmit() = 0;
  [[nodiscard]] virtual bool Write(std::span<const std::uint8_t> bytes) = 0;
  [[nodiscard]] virtual std::optional<std::vector<std::uint8_t>> TakeReceived() = 0; // everything waiting
};

} // namespace mr4500x
