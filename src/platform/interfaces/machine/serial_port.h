#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mr4500x {

inline constexpr int PortCount = 16; // COM1 to COM16

// The name of a port in messages.
[[nodiscard]] inline std::string ComName(int number) {
  return "COM" + std::to_string(number);
}

enum class Parity : std::uint8_t { None, Odd, Even };

struct LineSettings {
  int baud;
  Parity parity;
  int dataBits;
  int stopBits;
  bool operator==(const LineSettings&) const = default;
};

// Once the port has failed (unplugged, driver error), operations return false or nullopt; it stays open until Close.
class SerialPort {
public:
  virtual ~SerialPort() = default;

  // Selects the port for the next Open: n means COMn, or the device mapped to it.
  virtual void SetPortNumber(int number) = 0;
  // Opens without flow control. Returns the system's error description on failure, else nullopt.
  [[nodiscard]] virtual std::optional<std::string> Open(const LineSettings& settings) = 0;
  virtual void Close() = 0;
  [[nodiscard]] virtual bool IsOpen() const = 0;

  [[nodiscard]] virtual std::optional<std::size_t> BytesReceived() = 0; // received but not yet taken
  [[nodiscard]] virtual bool DiscardReceived() = 0;
  // Written bytes that have not left the computer, including the driver's queue.
  [[nodiscard]] virtual std::optional<std::size_t> BytesToTransmit() = 0;
  // Discards bytes not yet passed to the driver. The driver still sends what it has.
  [[nodiscard]] virtual bool DiscardTransmit() = 0;
  [[nodiscard]] virtual bool Write(std::span<const std::uint8_t> bytes) = 0;
  // Waits until the hardware has also sent the driver's bytes.
  virtual void AwaitSent() = 0;
  [[nodiscard]] virtual std::optional<std::vector<std::uint8_t>> TakeReceived() = 0; // everything waiting
};

} // namespace mr4500x
