#include "traced_port.h"

#include "radio_image.h"
#include "text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ostream>
#include <string>

namespace mr4500x {
namespace {

constexpr std::size_t FrameColumns = std::size_t{3} * 12; // the longest frames of the protocol
constexpr std::uint8_t FirstOfRecord = 0x57;
constexpr std::size_t MemoryPages = 4;

template<class... Values>
std::string Formatted(const char* format, Values... values) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

// The address and block of a frame that begins with 57 hi lo 08.
std::string RecordOf(std::span<const std::uint8_t> frame) {
  if (frame.size() < 4 || frame[0] != FirstOfRecord || frame[1] >= MemoryPages) return "";
  const auto address = static_cast<std::uint16_t>(frame[1] << 8 | frame[2]);
  const BlockLocation* const place = LocationOf(address);
  return Formatted("0x%03X ", address) + std::string(place != nullptr ? NameOf(place->block) : "no block");
}

} // namespace

std::optional<std::string> TracedPort::Open(const LineSettings& settings) {
  m_start.reset();
  m_seen.reset();
  m_hasFailed = false;
  return m_port.Open(settings);
}

std::optional<std::size_t> TracedPort::BytesReceived() {
  const std::optional<std::size_t> count = Checked(m_port.BytesReceived());
  if (count.value_or(0) > 0 && !m_seen) m_seen = m_clock.Now();
  return count;
}

// Takes the bytes out of the port to log them.
bool TracedPort::DiscardReceived() {
  if (const auto bytes = m_port.TakeReceived()) NoteReceived(*bytes, "thrown away");
  return Checked(m_port.DiscardReceived());
}

bool TracedPort::Write(std::span<const std::uint8_t> bytes) {
  Note(m_clock.Now(), "computer", bytes, RecordOf(bytes));
  return Checked(m_port.Write(bytes));
}

std::optional<std::vector<std::uint8_t>> TracedPort::TakeReceived() {
  auto bytes = Checked(m_port.TakeReceived());
  if (bytes) NoteReceived(*bytes);
  return bytes;
}

void TracedPort::NoteReceived(std::span<const std::uint8_t> bytes, std::string_view remark) {
  const Clock::Moment seen = m_seen.value_or(m_clock.Now());
  m_seen.reset();
  if (!bytes.empty()) Note(seen, "radio", bytes, remark.empty() ? RecordOf(bytes) : remark);
}

// Flushed at once, because the trace is needed most when the program crashes.
void TracedPort::Note(Clock::Moment moment, std::string_view direction, std::span<const std::uint8_t> bytes,
                      std::string_view remark) {
  if (!m_start) {
    m_start = moment;
    m_trace << TimestampText(m_localNow()) << '\n';
  }
  std::string frame;
  for (const std::uint8_t byte : bytes)
    frame += Formatted("%02X ", byte);
  if (!remark.empty()) frame.resize(std::max(frame.size(), FrameColumns), ' ');
  std::string line =
      Formatted("%8.1f %-8s ", static_cast<double>((moment - *m_start).count()) / 1000, std::string(direction).c_str());
  line.append(frame).append(remark);
  m_trace << TrimmedAtEnd(line) << '\n' << std::flush;
}

} // namespace mr4500x
