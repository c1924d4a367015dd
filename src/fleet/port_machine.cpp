#include "port_machine.h"

#include "words.h"

#include <utility>

namespace mr4500x {
namespace {

constexpr int PollEvery = 10;    // cycles between the checks for other benches' work
constexpr int IdentityTries = 3; // the first may fail while the plug is being inserted
constexpr int SilentTries = 3;   // until an attached radio counts as unplugged

void Show(PortMachine& port, PortState state, const std::string& text = {}, int percent = 0) {
  port.status.state = state;
  port.status.text = text;
  port.status.percent = percent;
  port.status.remedy = Remedy::None;
}

void ForgetRadio(PortMachine& port) {
  port.radio.reset();
  port.waitsForRow = false;
  port.badIdentities = port.silentTries = 0;
  port.status.row = 0;
  port.status.label.clear();
  port.status.idNumber.clear();
}

PortAction Search(PortMachine& port, const std::string& hint = {}) {
  ForgetRadio(port);
  port.phase = PortPhase::Searching;
  Show(port, PortState::Waiting, hint);
  return PortAction::Wait;
}

PortAction LoseJournal(PortMachine& port, const std::string& error) {
  port.phase = PortPhase::JournalLost;
  Show(port, PortState::NoJournal, error);
  return PortAction::Wait;
}

PortAction Attach(PortMachine& port, const std::string& idNumber) {
  const bool isOther = port.status.idNumber != idNumber;
  ForgetRadio(port);
  port.phase = PortPhase::RadioAttached;
  port.radio = port.status.idNumber = idNumber;
  if (isOther) Show(port, PortState::Identifying); // this radio may have the same outcome as the previous one
  return PortAction::HandleRadio;
}

// If the same radio fails again, the fault is its own. A radio without a number may be a different one each time.
bool IsSecondFailure(const PortMachine& port) {
  return port.failedRadio && (port.failedRadio != port.radio || port.failedRadio->empty());
}

PortAction Stop(PortMachine& port, bool isOver) {
  const std::string hint = port.status.remedy == Remedy::CheckCable ? CableHint : LastFailureHint;
  if (port.status.state != PortState::Stopped) Show(port, PortState::Stopped, hint + port.status.text);
  port.status.remedy = isOver ? Remedy::None : Remedy::GoOn;
  return isOver ? PortAction::End : PortAction::Wait;
}

PortAction On(PortMachine& port, const CycleStarted& /*event*/, const BenchView& bench) {
  if (port.phase == PortPhase::Stopped && bench.goesOn) {
    port.failedRadio.reset();
    Search(port);
  } else if (bench.goesOn) {
    port.radio.reset(); // the one that was set aside
    Show(port, PortState::Identifying);
  }
  const bool isStopped = port.phase == PortPhase::Stopped;
  if (bench.isOver && !isStopped) port.phase = PortPhase::Ending;
  const bool needsJournal = bench.isOver || port.phase == PortPhase::JournalLost;
  if (port.cycles++ % PollEvery == 0 || needsJournal) return PortAction::PollJournal;
  return bench.hasSlot && !isStopped ? PortAction::Identify : PortAction::Wait; // another port's radio may release one
}

PortAction On(PortMachine& port, const JournalPolled& event, const BenchView& bench) {
  if (port.phase == PortPhase::Stopped) return Stop(port, bench.isOver);
  if (port.phase == PortPhase::Ending || bench.isOver) {
    Show(port, PortState::Finished);
    return PortAction::End;
  }
  const bool isIdle = port.phase == PortPhase::Searching || port.phase == PortPhase::JournalLost;
  if (event.error && isIdle) return LoseJournal(port, *event.error);
  const bool isBack = port.phase == PortPhase::JournalLost;
  if (isBack && port.status.idNumber.empty()) Search(port);
  if (isBack) port.phase = PortPhase::Searching;      // but a full disk may still refuse the radio's row
  if (isBack || port.waitsForRow) port.radio.reset(); // a row may be free now
  return bench.hasSlot ? PortAction::Identify : PortAction::Wait;
}

PortAction On(PortMachine& port, const RadioAnswered& /*event*/, const BenchView& /*bench*/) {
  if (port.phase == PortPhase::RadioAttached) return PortAction::None;
  if (port.phase == PortPhase::PortLost) ForgetRadio(port);
  if (port.status.state != PortState::NoJournal) Show(port, PortState::Identifying);
  return PortAction::None;
}

PortAction On(PortMachine& port, const RadioIdentified& event, const BenchView& /*bench*/) {
  const bool isAttached = port.phase == PortPhase::RadioAttached;
  if (event.outcome == Outcome::PortNotOpened) {
    port.phase = PortPhase::PortLost;
    if (port.status.state == PortState::Failed) return PortAction::Wait; // the radio may be only partly programmed
    ForgetRadio(port);
    Show(port, PortState::NoPort, event.text);
    return PortAction::Wait;
  }
  if (event.outcome == Outcome::NoResponse)
    return isAttached && ++port.silentTries < SilentTries ? PortAction::Wait : Search(port, event.text);
  port.silentTries = 0;
  if (event.outcome == Outcome::Complete) {
    port.badIdentities = 0;
    return isAttached && port.radio == event.idNumber ? PortAction::Wait : Attach(port, event.idNumber);
  }
  if (isAttached) return PortAction::Wait;
  port.phase = PortPhase::Searching;
  return ++port.badIdentities == IdentityTries ? Attach(port, "") : PortAction::Wait;
}

PortAction On(PortMachine& port, const RadioReported& event, const BenchView& /*bench*/) {
  if (event.state == PortState::Waiting) return Search(port);
  if (event.state == PortState::NoJournal) return LoseJournal(port, event.text);
  port.status.row = event.row;
  port.status.label = event.label;
  Show(port, event.state, event.text, event.percent);
  port.status.remedy = event.remedy;
  if (IsUnderway(event.state)) return PortAction::None;
  port.waitsForRow = event.state == PortState::NoRow;
  if (port.waitsForRow) return PortAction::Wait;
  if (event.isFailure && IsSecondFailure(port)) port.phase = PortPhase::Stopped;
  port.failedRadio = event.isFailure ? port.radio : std::nullopt;
  return PortAction::PollJournal; // it may have been the last row
}

} // namespace

bool NeedsRow(const PortMachine& machine) {
  const PortState state = machine.status.state;
  const bool isUnserved = state == PortState::Identifying || state == PortState::NoRow;
  return machine.phase == PortPhase::Searching || (machine.phase == PortPhase::RadioAttached && isUnserved);
}

PortStep Advance(PortMachine machine, const PortEvent& event, const BenchView& bench) {
  const PortAction action = std::visit([&](const auto& each) { return On(machine, each, bench); }, event);
  return {std::move(machine), action};
}

} // namespace mr4500x
