// The radio's side of the programming protocol: bytes in with the moments they were written, bytes out with the
// moments they are due. It does no input or output and reads no clock.
#pragma once

#include "fault_plan.h"
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

  // `characterTime` is what one character takes on the line, in either direction; 0 for a line without delay.
  SimulatedRadio(const RadioMemory& memory, Moment characterTime, FaultPlan faults = {});

  // The computer wrote these bytes at that moment. Moments never go back.
  void Hear(std::span<const std::uint8_t> bytes, Moment writtenAt);

  // When the next bytes have arrived at the computer; nothing when none are on their way.
  [[nodiscard]] std::optional<Moment> NextReplyAt() const;
  // All bytes that have arrived by then and were not taken before.
  [[nodiscard]] std::vector<std::uint8_t> TakeReplies(Moment now);

  [[nodiscard]] const RadioMemory& Memory() const { return m_memory; }
  [[nodiscard]] unsigned EndedSessions() const { return m_endedSessions; } // by an end packet
  [[nodiscard]] bool HasVanished() const { return m_hasVanished; }         // as planned

private:
  enum class Session : std::uint8_t { None, Read, Write };
  struct Reply {
    Moment due; // of its last byte
    std::vector<std::uint8_t> bytes;
  };
  using Bytes = std::vector<std::uint8_t>;

  // Each deals with what stands at the front of m_heard and tells how many bytes that was; 0 when more must come.
  std::size_t TakeMessage();
  std::size_t TakeEnd();
  std::size_t TakeRecord();

  void DropStaleMessage();
  void WakeUp(Session session);
  void EndSession();
  void AnswerWakeUp();
  void AnswerRead(std::size_t address);
  void AnswerWrite(std::size_t address);
  void AnswerEnd();
  void Answer(Bytes bytes, bool isNoisy, bool isSplit = false);
  void Transmit(Bytes bytes, Moment pause);

  RadioMemory m_memory;
  const Moment m_characterTime;
  const FaultPlan m_faults;

  Session m_session = Session::None;
  int m_record = 0;  // of the session, counted from 0
  int m_wakeUps = 0; // in a row without an answer
  Bytes m_heard;     // of a message that is not complete
  Moment m_heardAt{0};
  std::deque<Reply> m_replies;
  Moment m_lineFreeAt{0};
  unsigned m_endedSessions = 0;
  bool m_hasVanished = false;
};

} // namespace mr4500x
