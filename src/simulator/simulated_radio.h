// The radio's side of the protocol: bytes in and out, with their times. It performs no I/O and reads no clock.
#pragma once

#include "faults.h"
#include "radio_memory.h"

#include <chrono>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace mr4500x {

class SimulatedRadio {
public:
  using Moment = std::chrono::microseconds;

  // `characterTime` is the time of one character on the line, 0 for no delay. `deafness`: bytes that arrive within this
  // time after the end of an answer are lost.
  SimulatedRadio(const RadioMemory& memory, Moment characterTime, std::vector<PlannedFault> faults = {},
                 Moment deafness = {});

  // Bytes that the computer wrote. Times must not decrease.
  void Receive(std::span<const std::uint8_t> bytes, Moment writtenAt);

  // When the next reply has arrived at the computer; nullopt if there is none.
  [[nodiscard]] std::optional<Moment> NextReplyAt() const;
  // The bytes that have arrived since the last call.
  [[nodiscard]] std::vector<std::uint8_t> TakeReplies(Moment now);

  [[nodiscard]] const RadioMemory& Memory() const { return m_memory; }
  void Swap(std::string_view number) { SetIdentityNumber(m_memory, number); } // for a radio with this number
  [[nodiscard]] unsigned EndedSessions() const { return m_endedSessions; }    // by an end packet or its mark
  [[nodiscard]] bool HasVanished() const { return m_hasVanished; }            // because of the fault "vanish"

private:
  enum class Session : std::uint8_t { None, Read, Write };
  struct Reply {
    Moment due; // time of its last byte
    std::vector<std::uint8_t> bytes;
  };
  using Bytes = std::vector<std::uint8_t>;

  // Handle the start of m_received and return how many bytes they used, 0 to wait for more.
  std::size_t TakeMessage();
  std::size_t TakeEnd();
  std::size_t TakeRecord();

  [[nodiscard]] bool Has(Fault fault) const; // throughout the session, or at this record
  void DropStaleMessage();
  void WakeUp(Session session);
  void EndSession();
  void AnswerWakeUp();
  void AnswerRead(std::size_t address);
  void AnswerWrite(std::size_t address);
  void AnswerEnd();
  void Answer(Bytes bytes, bool isSplit = false);
  void Transmit(Bytes bytes, Moment pause);

  RadioMemory m_memory;
  const Moment m_characterTime;
  const std::vector<PlannedFault> m_faults;
  const Moment m_deafness;

  static constexpr int NoRecord = -1;

  Session m_session = Session::None;
  int m_record = NoRecord; // record of the session, counted from 0
  int m_wakeUps = 0;       // wake-ups in a row without an answer
  Bytes m_received;        // bytes of an incomplete message
  Moment m_receivedAt{0};
  std::deque<Reply> m_replies;
  Moment m_lineFreeAt{0}; // the end of the last answer
  unsigned m_endedSessions = 0;
  bool m_hasVanished = false;
};

} // namespace mr4500x
