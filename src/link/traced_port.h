// A serial port that logs the traffic of another one, with one line per frame: time, sender, bytes and record.
#pragma once

#include <functional>
#include <iosfwd>
#include <string_view>
#include <utility>

#include "clock.h"
#include "serial_port.h"

namespace mr4500x {

class TracedPort : public SerialPort {
public:
  // A heading with the local time precedes the first frame after each opening. Frames count their time from there.
  TracedPort(SerialPort& port, Clock& clock, std::function<LocalTime()> now, std::ostream& trace)
      : m_port(port), m_clock(clock), m_localNow(std::move(now)), m_trace(trace) {}

  void SetPortNumber(int number) override { m_port.SetPortNumber(number); }
  [[nodiscard]] std::optional<std::string> Open(const LineSettings& settings) override;
  void Close() override { m_port.Close(); }
  [[nodiscard]] bool IsOpen() const override { return m_port.IsOpen(); }
  [[nodiscard]] std::optional<std::size_t> BytesReceived() override;
  [[nodiscard]] bool DiscardReceived() override;
  [[nodiscard]] std::optional<std::size_t> BytesToTransmit() override { return Checked(m_port.BytesToTransmit()); }
  [[nodiscard]] bool DiscardTransmit() override { return Checked(m_port.DiscardTransmit()); }
  [[nodiscard]] bool Write(std::span<const std::uint8_t> bytes) override;
  void AwaitSent() override { m_port.AwaitSent(); }
  [[nodiscard]] std::optional<std::vector<std::uint8_t>> TakeReceived() override;

private:
  void Note(Clock::Moment moment, std::string_view direction, std::span<const std::uint8_t> bytes,
            std::string_view remark);
  void NoteReceived(std::span<const std::uint8_t> bytes, std::string_view remark = "");
  // Logs a failure of the port, once.
  template<class Answer>
  [[nodiscard]] Answer Checked(Answer answer) {
    if (!answer && !std::exchange(m_hasFailed, true)) Note(m_clock.Now(), "", {}, "the port has failed");
    return answer;
  }

  SerialPort& m_port;
  Clock& m_clock;
  std::function<LocalTime()> m_localNow;
  std::ostream& m_trace;
  std::optional<Clock::Moment> m_start; // time of the first frame since the opening
  std::optional<Clock::Moment> m_seen;  // when the waiting bytes were first seen
  bool m_hasFailed = false;
};

} // namespace mr4500x
