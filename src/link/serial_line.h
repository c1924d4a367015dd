// The serial line to the radio: the primitives that sessions are built from.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "clock.h"
#include "serial_port.h"

namespace mr4500x {

using Milliseconds = std::chrono::milliseconds;
using LineBytes = std::vector<std::uint8_t>;

// No hardware or software handshaking.
inline constexpr LineSettings RadioLine = {.baud = 9600, .parity = Parity::Odd, .dataBits = 8, .stopBits = 2};

constexpr int BitsPerCharacter(const LineSettings& line) {
  return 1 + line.dataBits + (line.parity == Parity::None ? 0 : 1) + line.stopBits;
}
inline constexpr Clock::Moment CharacterTime{1'000'000 * BitsPerCharacter(RadioLine) / RadioLine.baud};

enum class Polled { Satisfied, TimedOut, PortFailed };

// Unless a comment says otherwise, false and nullopt mean that the port has failed.
class SerialLine {
public:
  SerialLine(SerialPort& port, Clock& clock, int number);
  // With a name for messages other than "COMn".
  SerialLine(SerialPort& port, Clock& clock, int number, std::string name);

  [[nodiscard]] const std::string& PortName() const { return m_name; }

  // nullopt when the port is ready, else the system's description: empty if the port failed after it was opened.
  [[nodiscard]] std::optional<std::string> OpenPort();
  void ReopenPort(); // if it has closed
  void ClosePort();

  void Wait(Milliseconds time);

  // Returns when the bytes have left the line.
  [[nodiscard]] bool Send(std::span<const std::uint8_t> bytes);
  // The two halves of Send, for work to be done while the bytes are being sent.
  [[nodiscard]] bool Write(std::span<const std::uint8_t> bytes);
  [[nodiscard]] bool Drain();
  // Waits until the hardware has also sent the driver's bytes.
  void AwaitSent() { m_port.AwaitSent(); }

  // Checks for `count` bytes every 20 ms, at most `rounds` times. Also waits the 20 ms after a successful check.
  [[nodiscard]] Polled Poll(std::size_t count, int rounds);
  // Returns as soon as the bytes have arrived, and gives up when Poll would.
  [[nodiscard]] Polled Await(std::size_t count, int rounds);
  [[nodiscard]] std::optional<std::size_t> BytesWaiting() { return m_port.BytesReceived(); }
  // Takes all waiting bytes. Discards bytes that arrive in the meantime.
  [[nodiscard]] std::optional<LineBytes> Receive();
  // Whether Receive has returned any bytes since the port was opened.
  [[nodiscard]] bool HasReceived() const { return m_hasReceived; }

  [[nodiscard]] bool DiscardInput() { return m_port.DiscardReceived(); }
  [[nodiscard]] bool DiscardOutput() { return m_port.DiscardTransmit(); }

private:
  SerialPort& m_port;
  Clock& m_clock;
  int m_number;
  std::string m_name;
  bool m_hasReceived = false;
  Clock::Moment m_written{};  // when the last Write began
  Clock::Moment m_lineFree{}; // when its last bit can have left the line
};

} // namespace mr4500x
