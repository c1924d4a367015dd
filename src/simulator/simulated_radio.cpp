#include "simulated_radio.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

// What the computer sends:
//   72 45 41 44                        wake-up for reading
//   77 52 49 54 45                     wake-up for writing
//   57 hi lo 08                        asks for a record
//   57 hi lo 08 d0 .. d7               writes a record
//   57 AA AA AA                        ends reading
//   57 AA AA AA 55 55 55 55 55 55 55 55  ends a session of either kind
constexpr std::array<std::uint8_t, 4> ReadWord = {0x72, 0x45, 0x41, 0x44};
constexpr std::array<std::uint8_t, 5> WriteWord = {0x77, 0x52, 0x49, 0x54, 0x45};
constexpr std::array<std::uint8_t, 12> EndPacket = {0x57, 0xAA, 0xAA, 0xAA, 0x55, 0x55,
                                                    0x55, 0x55, 0x55, 0x55, 0x55, 0x55};
constexpr std::size_t EndMarkBytes = 4; // at the start of the end packet; alone they end reading
constexpr std::uint8_t RecordMark = 0x57;
constexpr std::size_t RecordBytes = 8;
constexpr std::size_t RecordHeaderBytes = 4;

constexpr std::uint8_t Acknowledge = 0x06;
constexpr std::uint8_t Refusal = 0x15;

// After a longer pause the rest of a message will not come. Adapters delay bytes by up to 16 ms; the computer waits at
// least 80 ms before a new try.
constexpr auto MessageGap = 40ms;
constexpr auto SplitPause = 50ms;
constexpr auto StatusDelay = 400ms;
constexpr int LateWakeUps = 3;

constexpr std::size_t BandAddress = 0x3F0;

constexpr bool IsReadOnly(std::size_t address) {
  const bool isIdentity = address >= 0x1F0 && address <= 0x1FF;
  const bool isFirmware = address >= 0x3F8 && address <= 0x3FF;
  return isIdentity || isFirmware;
}

// Whether one of the two starts with the other.
bool Agree(std::span<const std::uint8_t> heard, std::span<const std::uint8_t> message) {
  const std::size_t common = std::min(heard.size(), message.size());
  return std::equal(heard.begin(), heard.begin() + static_cast<std::ptrdiff_t>(common), message.begin());
}

} // namespace

SimulatedRadio::SimulatedRadio(const RadioMemory& memory, Moment characterTime, FaultPlan faults)
    : m_memory(memory), m_characterTime(characterTime), m_faults(std::move(faults)) {}

void SimulatedRadio::Hear(std::span<const std::uint8_t> bytes, Moment writtenAt) {
  if (writtenAt - m_heardAt > MessageGap) DropStaleMessage();
  for (const std::uint8_t byte : bytes) {
    if (m_hasVanished) return;
    m_heardAt = std::max(m_heardAt, writtenAt) + m_characterTime;
    m_heard.push_back(byte);
    while (!m_heard.empty()) {
      const std::size_t taken = TakeMessage();
      if (taken == 0) break;
      m_heard.erase(m_heard.begin(), m_heard.begin() + static_cast<std::ptrdiff_t>(taken));
    }
  }
}

std::optional<SimulatedRadio::Moment> SimulatedRadio::NextReplyAt() const {
  if (m_replies.empty()) return std::nullopt;
  return m_replies.front().due;
}

std::vector<std::uint8_t> SimulatedRadio::TakeReplies(Moment now) {
  Bytes bytes;
  while (!m_replies.empty() && m_replies.front().due <= now) {
    const Bytes& reply = m_replies.front().bytes;
    bytes.insert(bytes.end(), reply.begin(), reply.end());
    m_replies.pop_front();
  }
  return bytes;
}

void SimulatedRadio::DropStaleMessage() {
  // The mark alone ends a write session too, without a status.
  const bool isEnd = m_heard.size() >= EndMarkBytes && Agree(m_heard, EndPacket);
  if (isEnd) EndSession();
  m_heard.clear();
}

std::size_t SimulatedRadio::TakeMessage() {
  if (Agree(m_heard, ReadWord)) {
    if (m_heard.size() < ReadWord.size()) return 0;
    WakeUp(Session::Read);
    return ReadWord.size();
  }
  if (Agree(m_heard, WriteWord)) {
    if (m_heard.size() < WriteWord.size()) return 0;
    WakeUp(Session::Write);
    return WriteWord.size();
  }
  if (m_session == Session::None || m_heard[0] != RecordMark) return 1; // noise
  const bool mayBeEnd = m_heard.size() < 2 || m_heard[1] == EndPacket[1];
  return mayBeEnd ? TakeEnd() : TakeRecord();
}

std::size_t SimulatedRadio::TakeEnd() {
  const bool isWholePacket = Agree(m_heard, EndPacket);
  if (m_heard.size() < EndMarkBytes) return isWholePacket ? 0 : 1;
  if (!Agree(std::span(m_heard).first(EndMarkBytes), EndPacket)) return 1;
  if (m_session == Session::Write && isWholePacket) {
    if (m_heard.size() < EndPacket.size()) return 0;
    AnswerEnd();
    EndSession();
    return EndPacket.size();
  }
  EndSession();
  return EndMarkBytes; // after reading, what follows the mark is noise outside a session
}

std::size_t SimulatedRadio::TakeRecord() {
  // Refuse a damaged header as early as possible, so that little of what follows is lost.
  if (m_heard[1] >= RadioMemoryBytes / 256) return 1;
  if (m_heard.size() > 2 && m_heard[2] % RecordBytes != 0) return 1;
  if (m_heard.size() > 3 && m_heard[3] != RecordBytes) return 1;
  const std::size_t length = RecordHeaderBytes + (m_session == Session::Write ? RecordBytes : 0);
  if (m_heard.size() < length) return 0;

  const std::size_t address = std::size_t{m_heard[1]} * 256 + m_heard[2];
  m_hasVanished = m_faults.At(Fault::Vanish, m_record);
  if (m_hasVanished) return length;
  if (m_session == Session::Write)
    AnswerWrite(address);
  else
    AnswerRead(address);
  ++m_record;
  return length;
}

void SimulatedRadio::WakeUp(Session session) {
  m_replies.clear();
  m_lineFreeAt = m_heardAt;
  m_session = session;
  m_record = 0;
  ++m_wakeUps;
  const bool isTooEarly = m_faults.Throughout(Fault::LateAnswer) && m_wakeUps < LateWakeUps;
  if (m_faults.Throughout(Fault::Silent) || isTooEarly) {
    m_session = Session::None;
    return;
  }
  m_wakeUps = 0;
  AnswerWakeUp();
}

void SimulatedRadio::EndSession() {
  m_session = Session::None;
  ++m_endedSessions;
}

void SimulatedRadio::AnswerWakeUp() {
  const bool isNoisy = m_faults.Throughout(Fault::Garbage);
  if (m_faults.Throughout(Fault::WrongAnswer)) {
    m_session = Session::None;
    return Answer({Refusal}, isNoisy);
  }
  if (m_session == Session::Read) return Answer({Acknowledge}, isNoisy);

  // 52, the four band bytes, 00 30, two unused bytes
  Bytes identity = {'R', 0, 0, 0, 0, 0x00, 0x30, 0x00, 0x00};
  std::copy_n(m_memory.begin() + BandAddress, 4, identity.begin() + 1);
  if (m_faults.Throughout(Fault::OtherBand)) {
    const bool isVhf = identity[1] == 0x88;
    constexpr std::array<std::uint8_t, 4> Vhf = {0x88, 0x00, 0xAE, 0x00}; // 136 to 174 MHz
    constexpr std::array<std::uint8_t, 4> Uhf = {0xB8, 0x01, 0xD6, 0x01}; // 440 to 470 MHz
    std::copy_n((isVhf ? Uhf : Vhf).begin(), 4, identity.begin() + 1);
  }
  if (m_faults.Throughout(Fault::WrongModel)) identity[0] = 'Q';
  if (m_faults.Throughout(Fault::ShortIdentity)) identity.pop_back();
  Answer(std::move(identity), isNoisy, m_faults.Throughout(Fault::SplitReply));
}

void SimulatedRadio::AnswerRead(std::size_t address) {
  if (m_faults.At(Fault::Silent, m_record)) return;
  Bytes reply(m_heard.begin(), m_heard.begin() + RecordHeaderBytes);
  const auto data = m_memory.begin() + static_cast<std::ptrdiff_t>(address);
  reply.insert(reply.end(), data, data + RecordBytes);
  if (m_faults.At(Fault::WrongAddress, m_record)) {
    reply[1] = 0x03;
    reply[2] = 0x00;
  }
  if (m_faults.At(Fault::ForeignReply, m_record)) reply[0] = RecordMark + 1;
  if (m_faults.At(Fault::BadCount, m_record)) reply[3] = 2 * RecordBytes;
  if (m_faults.At(Fault::ShortReply, m_record)) reply.pop_back();
  if (m_faults.At(Fault::LongReply, m_record)) reply.push_back(0x00);
  Answer(std::move(reply), m_faults.At(Fault::Garbage, m_record), m_faults.At(Fault::SplitReply, m_record));
}

void SimulatedRadio::AnswerWrite(std::size_t address) {
  if (!IsReadOnly(address)) {
    std::copy_n(m_heard.begin() + RecordHeaderBytes, RecordBytes,
                m_memory.begin() + static_cast<std::ptrdiff_t>(address));
  }
  if (m_faults.At(Fault::Silent, m_record) || m_faults.At(Fault::NoAcknowledge, m_record)) return;
  const bool isRefused = m_faults.At(Fault::WrongAcknowledge, m_record);
  Answer({isRefused ? Refusal : Acknowledge}, m_faults.At(Fault::Garbage, m_record));
}

void SimulatedRadio::AnswerEnd() {
  Bytes status = {'O', 'K'};
  if (m_faults.Throughout(Fault::Ng)) status = {'N', 'G'};
  if (m_faults.Throughout(Fault::LongStatus)) status.push_back(0x00);
  if (m_faults.Throughout(Fault::LateStatus)) m_lineFreeAt = m_heardAt + StatusDelay;
  Answer(std::move(status), m_faults.Throughout(Fault::Garbage));
}

void SimulatedRadio::Answer(Bytes bytes, bool isNoisy, bool isSplit) {
  if (isNoisy) bytes.insert(bytes.begin(), {0xFF, 0x00});
  Bytes rest;
  if (isSplit) {
    const auto middle = bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2);
    rest.assign(middle, bytes.end());
    bytes.erase(middle, bytes.end());
  }
  Transmit(std::move(bytes), Moment::zero());
  if (isSplit) Transmit(std::move(rest), SplitPause);
}

void SimulatedRadio::Transmit(Bytes bytes, Moment pause) {
  const auto length = static_cast<Moment::rep>(bytes.size());
  m_lineFreeAt = std::max(m_lineFreeAt, m_heardAt) + pause + length * m_characterTime;
  m_replies.push_back({m_lineFreeAt, std::move(bytes)});
}

} // namespace mr4500x
