// The status that a port of a bench reports, for its card and its lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace mr4500x {

enum class PortState : std::uint8_t {
  Waiting, // for a radio
  Identifying,
  BackingUp,
  Writing,
  Verifying,
  // The radio can be unplugged:
  Done,
  AlreadyDone, // already holds a row of this plan
  Failed,
  SetAside, // for example, it has another band
  NoRow,    // no free row for it
  // Without a radio:
  NoPort,    // can't be opened; tried again
  NoJournal, // no new rows until the database answers
  Stopped,   // two radios in a row have failed
  Finished,  // as requested, or nothing is left to do
};

[[nodiscard]] constexpr bool IsUnderway(PortState state) { // with a radio that must not be unplugged
  return state >= PortState::Identifying && state <= PortState::Verifying;
}
[[nodiscard]] constexpr bool IsGood(PortState state) {
  return state == PortState::Done || state == PortState::AlreadyDone;
}
[[nodiscard]] constexpr bool IsBad(PortState state) {
  return state == PortState::Failed || state == PortState::SetAside || state == PortState::NoRow;
}
[[nodiscard]] constexpr bool IsEnd(PortState state) {
  return state == PortState::Stopped || state == PortState::Finished;
}

// What the user can do next.
enum class Remedy : std::uint8_t {
  None,
  PlugInAgain,
  CheckCable, // or the radio
  CheckFolder,
  PutAside,
  AcceptBand,
  RewriteChanged,
  ChooseAgain,
  ProgramIt,
  ReprogramOne,
  PlugInBoth,
  Wait,
  GoOn,
};
// A stopped port continues by a click, and programs a radio that it has set aside.
[[nodiscard]] constexpr bool IsByClick(Remedy remedy) {
  return remedy == Remedy::ProgramIt || remedy == Remedy::GoOn;
}

struct PortStatus {
  std::size_t port = 0; // index, from 0
  PortState state = PortState::Waiting;
  std::size_t row = 0; // 0: none
  std::string label{}, idNumber{}, text{};
  int percent = 0;         // of backup, write and verification together
  std::size_t nextRow = 0; // Waiting: the row of the next radio; 0: none
  std::string nextLabel{};
  Remedy remedy = Remedy::None;
};

} // namespace mr4500x
