#include "simulated_radio.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mr4500x {
namespace {

using namespace std::chrono_literals;

// What the computer sends:
//   72 45 41 44                          "rEAD": wake-up for reading
//   77 52 49 54 45                       "wRITE": wake-up for writing
//   57 hi lo 08                          asks for a record
//   57 hi lo 08 d0 .. d7                 writes a record
//   57 AA AA AA                          ends reading
//   57 AA AA AA 55 55 55 55 55 55 55 55  ends a session of either kind
constexpr std::array<std::uint8_t, 12> EndPacket = {0x57, 0xAA, 0xAA, 0xAA, 0x55, 0x55,
                                                    0x55, 0x55, 0x55, 0x55, 0x55, 0x55};
constexpr std::size_t EndMarkBytes = 4; // the start of the end packet; alone it ends reading
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

constexpr bool IsReadOnly(std::size_t address) { // identity number, firmware version
  return (address >= 0x1F0 && address <= 0x1FF) || address >= 0x3F8;
}

// Whether one of the two is a prefix of the other.
template<class Message>
bool Agree(std::span<const std::uint8_t> heard, const Message& message) {
  const auto common = std::min(heard.size(), message.size());
  return std::equal(heard.begin(), heard.begin() + static_cast<std::ptrdiff_t>(common), message.begin());
}

} // namespace

SimulatedRadio::SimulatedRadio(const RadioMemory& memory, Moment characterTime, std::vector<PlannedFault> faults,
                               Moment deafness)
    : m_memory(memory), m_characterTime(characterTime), m_faults(std::move(faults)), m_deafness(deafness) {}

void SimulatedRadio::Receive(std::span<const std::uint8_t> bytes, Moment writtenAt) {
  if (writtenAt - m_receivedAt > MessageGap) DropStaleMessage();
  for (const std::uint8_t byte : bytes) {
    if (m_hasVanished) return;
    m_receivedAt = std::max(m_receivedAt, writtenAt) + m_characterTime;
    if (m_deafness > 0us && m_receivedAt - m_characterTime < m_lineFreeAt + m_deafness) continue;
    m_received.push_back(byte);
    while (!m_received.empty()) {
      const std::size_t taken = TakeMessage();
      if (taken == 0) break;
      m_received.erase(m_received.begin(), m_received.begin() + static_cast<std::ptrdiff_t>(taken));
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

bool SimulatedRadio::Has(Fault fault) const {
  return std::ranges::any_of(m_faults, [&](const PlannedFault& planned) {
    return planned.fault == fault && planned.record.value_or(m_record) == m_record;
  });
}

void SimulatedRadio::DropStaleMessage() {
  // The mark alone also ends a write session, without a status.
  if (m_received.size() >= EndMarkBytes && Agree(m_received, EndPacket)) EndSession();
  m_received.clear();
}

std::size_t SimulatedRadio::TakeMessage() {
  constexpr std::pair<std::string_view, Session> WakeUpWords[] = {{"rEAD", Session::Read}, {"wRITE", Session::Write}};
  for (const auto& [word, session] : WakeUpWords) {
    if (!Agree(m_received, word)) continue;
    if (m_received.size() < word.size()) return 0;
    WakeUp(session);
    return word.size();
  }
  if (m_session == Session::None || m_received[0] != RecordMark) return 1; // noise
  const bool mayBeEnd = m_received.size() < 2 || m_received[1] == EndPacket[1];
  return mayBeEnd ? TakeEnd() : TakeRecord();
}

std::size_t SimulatedRadio::TakeEnd() {
  const bool isWholePacket = Agree(m_received, EndPacket);
  if (m_received.size() < EndMarkBytes) return isWholePacket ? 0 : 1;
  if (!Agree(std::span(m_received).first(EndMarkBytes), EndPacket)) return 1;
  if (m_session == Session::Write && isWholePacket) {
    if (m_received.size() < EndPacket.size()) return 0;
    AnswerEnd();
    EndSession();
    return EndPacket.size();
  }
  EndSession();
  return EndMarkBytes; // after reading, bytes after the mark are noise outside a session
}

std::size_t SimulatedRadio::TakeRecord() {
  // Refuse a damaged header as early as possible, so that few of the following bytes are lost.
  if (m_received[1] >= RadioMemoryBytes / 256) return 1;
  if (m_received.size() > 2 && m_received[2] % RecordBytes != 0) return 1;
  if (m_received.size() > 3 && m_received[3] != RecordBytes) return 1;
  const std::size_t length = RecordHeaderBytes + (m_session == Session::Write ? RecordBytes : 0);
  if (m_received.size() < length) return 0;

  const std::size_t address = std::size_t{m_received[1]} * 256 + m_received[2];
  m_hasVanished = Has(Fault::Vanish);
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
  m_lineFreeAt = m_receivedAt;
  m_record = NoRecord;
  ++m_wakeUps;
  const bool isTooEarly = Has(Fault::LateAnswer) && m_wakeUps < LateWakeUps;
  m_session = Has(Fault::Silent) || isTooEarly ? Session::None : session;
  if (m_session == Session::None) return;
  m_wakeUps = 0;
  AnswerWakeUp();
  m_record = 0;
}

void SimulatedRadio::EndSession() {
  m_session = Session::None;
  ++m_endedSessions;
}

void SimulatedRadio::AnswerWakeUp() {
  if (Has(Fault::WrongAnswer)) {
    m_session = Session::None;
    return Answer({Refusal});
  }
  if (m_session == Session::Read) return Answer({Acknowledge});

  // 52, the four band bytes, 00 30, two unused bytes
  Bytes identity = {'R', 0, 0, 0, 0, 0x00, 0x30, 0x00, 0x00};
  std::copy_n(m_memory.begin() + BandAddress, 4, identity.begin() + 1);
  if (Has(Fault::OtherBand)) {
    constexpr std::array<std::uint8_t, 4> Vhf = {0x88, 0x00, 0xAE, 0x00}; // 136 to 174 MHz
    constexpr std::array<std::uint8_t, 4> Uhf = {0xB8, 0x01, 0xD6, 0x01}; // 440 to 470 MHz
    std::ranges::copy(identity[1] == Vhf[0] ? Uhf : Vhf, identity.begin() + 1);
  }
  if (Has(Fault::WrongModel)) identity[0] = 'Q';
  if (Has(Fault::ShortIdentity)) identity.pop_back();
  Answer(std::move(identity), Has(Fault::SplitReply));
}

void SimulatedRadio::AnswerRead(std::size_t address) {
  if (Has(Fault::Silent)) return;
  Bytes reply(m_received.begin(), m_received.begin() + RecordHeaderBytes);
  const auto data = m_memory.begin() + static_cast<std::ptrdiff_t>(address);
  reply.insert(reply.end(), data, data + RecordBytes);
  if (Has(Fault::WrongAddress)) {
    reply[1] = 0x03;
    reply[2] = 0x00;
  }
  if (Has(Fault::ForeignReply)) reply[0] = RecordMark + 1;
  if (Has(Fault::BadCount)) reply[3] = 2 * RecordBytes;
  if (Has(Fault::ShortReply)) reply.pop_back();
  if (Has(Fault::LongReply)) reply.push_back(0x00);
  Answer(std::move(reply), Has(Fault::SplitReply));
}

void SimulatedRadio::AnswerWrite(std::size_t address) {
  if (!IsReadOnly(address)) {
    const auto data = m_memory.begin() + static_cast<std::ptrdiff_t>(address);
    std::copy_n(m_received.begin() + RecordHeaderBytes, RecordBytes, data);
    if (Has(Fault::WrongByte)) data[RecordBytes - 1] ^= 0x01;
  }
  if (Has(Fault::Silent) || Has(Fault::NoAcknowledge)) return;
  Answer({Has(Fault::WrongAcknowledge) ? Refusal : Acknowledge});
}

void SimulatedRadio::AnswerEnd() {
  m_record = NoRecord;
  Bytes status = {'O', 'K'};
  if (Has(Fault::Ng)) status = {'N', 'G'};
  if (Has(Fault::LongStatus)) status.push_back(0x00);
  if (Has(Fault::LateStatus)) m_lineFreeAt = m_receivedAt + StatusDelay;
  Answer(std::move(status));
}

void SimulatedRadio::Answer(Bytes bytes, bool isSplit) {
  if (Has(Fault::Garbage)) bytes.insert(bytes.begin(), {0xFF, 0x00});
  const auto middle = isSplit ? bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2) : bytes.end();
  Transmit({bytes.begin(), middle}, Moment::zero());
  if (isSplit) Transmit({middle, bytes.end()}, SplitPause);
}

void SimulatedRadio::Transmit(Bytes bytes, Moment pause) {
  const auto length = static_cast<Moment::rep>(bytes.size());
  m_lineFreeAt = std::max(m_lineFreeAt, m_receivedAt) + pause + length * m_characterTime;
  m_replies.push_back({m_lineFreeAt, std::move(bytes)});
}

} // namespace mr4500x
