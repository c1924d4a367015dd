#include "serial_line.h"

#include <algorithm>
#include <utility>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

constexpr Milliseconds AfterOpening = 80ms;
constexpr Milliseconds PollRound = 20ms;
constexpr Clock::Moment AwaitInterval = 500us;
constexpr Milliseconds DrainCheck = 1ms;
constexpr Milliseconds DrainLimit = 2000ms;

} // namespace

SerialLine::SerialLine(SerialPort& port, Clock& clock, int number) : SerialLine(port, clock, number, ComName(number)) {}

SerialLine::SerialLine(SerialPort& port, Clock& clock, int number, std::string name)
    : m_port(port), m_clock(clock), m_number(number), m_name(std::move(name)) {}

std::optional<std::string> SerialLine::OpenPort() {
  ClosePort();
  m_hasReceived = false;
  m_port.SetPortNumber(m_number);
  if (std::optional<std::string> failure = m_port.Open(RadioLine)) return failure;
  if (!DiscardInput() || !DiscardOutput()) return "";
  Wait(AfterOpening);
  return std::nullopt;
}

void SerialLine::ReopenPort() {
  // If this fails, the next step fails as well, and the earlier failure is the one to report.
  if (!m_port.IsOpen()) static_cast<void>(m_port.Open(RadioLine));
}

void SerialLine::ClosePort() {
  if (m_port.IsOpen()) m_port.Close();
}

void SerialLine::Wait(Milliseconds time) {
  m_clock.WaitUntil(m_clock.Now() + time);
}

bool SerialLine::Send(std::span<const std::uint8_t> bytes) {
  return Write(bytes) && Drain() && DiscardOutput();
}

bool SerialLine::Write(std::span<const std::uint8_t> bytes) {
  m_written = m_clock.Now();
  m_lineFree = m_written + CharacterTime * bytes.size();
  return m_port.Write(bytes);
}

// A USB adapter accepts all bytes at once and reports an empty buffer while they are still being sent. So this also
// waits for the time that the bytes take on the line (D-30).
bool SerialLine::Drain() {
  m_clock.WaitUntil(m_lineFree);
  const Clock::Moment limit = m_written + DrainLimit;
  while (true) {
    const std::optional<std::size_t> left = m_port.BytesToTransmit();
    if (!left) return false;
    if (*left == 0) return true;
    const Clock::Moment now = m_clock.Now();
    if (now >= limit) return false;
    m_clock.WaitUntil(std::min<Clock::Moment>(now + DrainCheck, limit));
  }
}

Polled SerialLine::Poll(std::size_t count, int rounds) {
  const Clock::Moment start = m_clock.Now();
  for (int round = 0; round < rounds; ++round) {
    const std::optional<std::size_t> waiting = BytesWaiting();
    if (!waiting) return Polled::PortFailed;
    m_clock.WaitUntil(start + PollRound * (round + 1));
    if (*waiting >= count) return Polled::Satisfied;
  }
  return Polled::TimedOut;
}

Polled SerialLine::Await(std::size_t count, int rounds) {
  const Clock::Moment limit = m_clock.Now() + PollRound * rounds;
  while (true) {
    const std::optional<std::size_t> waiting = BytesWaiting();
    if (!waiting) return Polled::PortFailed;
    if (*waiting >= count) return Polled::Satisfied;
    const Clock::Moment now = m_clock.Now();
    if (now >= limit) return Polled::TimedOut;
    m_clock.WaitUntil(std::min(now + AwaitInterval, limit));
  }
}

std::optional<LineBytes> SerialLine::Receive() {
  std::optional<LineBytes> bytes = m_port.TakeReceived();
  m_hasReceived = m_hasReceived || (bytes && !bytes->empty());
  if (!DiscardInput()) return std::nullopt;
  return bytes;
}

} // namespace mr4500x
