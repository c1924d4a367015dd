// The state machine of a port, as a pure function: state and event in, state and action out. It does not depend on the
// line, the clock, threads or the database. PortWorker performs the actions.
#pragma once

#include "exchange.h"
#include "port_status.h"

#include <optional>
#include <string>
#include <variant>

namespace mr4500x {

enum class PortPhase : std::uint8_t {
  Searching,     // for a radio
  PortLost,      // it can't be opened
  JournalLost,   // it does not answer
  RadioAttached, // and its job is done or in progress
  Stopped,       // until the user lets it continue
  Ending,
};

struct PortMachine {
  PortPhase phase = PortPhase::Searching;
  std::optional<std::string> radio; // RadioAttached: its identity number, "" if unknown; nullopt: it may get a row now
  bool waitsForRow = false;
  int cycles = 0, badIdentities = 0, silentTries = 0;
  std::optional<std::string> failedRadio; // the last one, if it failed; "" if unknown
  PortStatus status;                      // what is shown
};

// The remaining work of the bench, and the requests of the user.
struct BenchView {
  bool isOver = false, hasSlot = true, goesOn = false;
};

// The events. Each action except None leads to one of them.
struct CycleStarted {}; // Wait
struct JournalPolled {  // PollJournal
  std::optional<std::string> error{};
};
struct RadioAnswered {}; // during an identification
struct RadioIdentified { // Identify
  Outcome outcome;
  std::string idNumber{}, text{};
};
struct RadioReported { // HandleRadio: during the job and at its end
  PortState state;
  std::size_t row = 0;
  std::string label{}, text{};
  int percent = 0;
  bool isFailure = false;
  Remedy remedy = Remedy::None;
};
using PortEvent = std::variant<CycleStarted, JournalPolled, RadioAnswered, RadioIdentified, RadioReported>;

enum class PortAction : std::uint8_t {
  None,        // the action in progress continues
  Wait,        // for the next cycle
  PollJournal, // enter the pending attempts, and check which rows are done
  Identify,
  HandleRadio, // get it a row, and program it
  End,
};

struct PortStep {
  PortMachine machine;
  PortAction action;
};

// Whether the port waits for a radio, or has one that waits for its row.
[[nodiscard]] bool NeedsRow(const PortMachine& machine);

[[nodiscard]] PortStep Advance(PortMachine machine, const PortEvent& event, const BenchView& bench);

} // namespace mr4500x
