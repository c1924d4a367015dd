// Blocks the user's input during a transfer while the windows continue to paint.
#pragma once

#include "end_signals.h"
#include "machine.h"

#include <QObject>

namespace mr4500x {

enum class HeldPointer { Busy, Unchanged }; // the mouse pointer while input is held

// Holds the user's input to all windows of the program. Held input is discarded, not queued. Only the request of an
// ending desktop session takes effect afterwards. So EventClock can safely process events during a transfer: only
// painting, resizing and the like get through.
class UserInput final : public QObject {
  Q_OBJECT

public:
  UserInput() = default;
  ~UserInput() override;
  Q_DISABLE_COPY_MOVE(UserInput)

  void Hold(HeldPointer pointer);
  void Release();
  [[nodiscard]] bool IsHeld() const { return m_isHeld; }
  [[nodiscard]] HeldPointer Pointer() const { return m_pointer; } // during the last hold

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool m_isHeld = false;
  bool m_quitIsDue = false;
  HeldPointer m_pointer = HeldPointer::Busy;
};

// The clock for transfers: a steady clock that processes events during its waits while the user's input is held.
class EventClock final : public Clock {
public:
  explicit EventClock(const UserInput& input) : m_input(input) {}

  [[nodiscard]] Moment Now() override { return m_steady.Now(); }
  void WaitUntil(Moment moment) override;

private:
  const UserInput& m_input;
  SteadyClock m_steady;
};

// Holds the input and the signals that would end the program.
class TransferGuard {
public:
  explicit TransferGuard(UserInput& input, HeldPointer pointer = HeldPointer::Busy) : m_input(input) {
    m_input.Hold(pointer);
  }
  ~TransferGuard() { m_input.Release(); }
  Q_DISABLE_COPY_MOVE(TransferGuard)

private:
  EndSignalsHeld m_endSignals;
  UserInput& m_input;
};

// Releases held input during its lifetime, for a question in the middle of a transfer.
class TransferPause {
public:
  explicit TransferPause(UserInput& input) : m_input(input), m_wasHeld(input.IsHeld()) { m_input.Release(); }
  ~TransferPause() {
    if (m_wasHeld) m_input.Hold(m_input.Pointer());
  }
  Q_DISABLE_COPY_MOVE(TransferPause)

private:
  UserInput& m_input;
  bool m_wasHeld;
};

} // namespace mr4500x
