// A transfer blocks the user, not the screen.
#pragma once

#include "end_signals.h"

#include <QObject>

namespace mr4500x {

// What the pointer shows while input is held.
enum class HeldPointer { Busy, Unchanged };

// The user's input to all windows of the program. While it is held what the user does is dropped, which the pointer
// may tell: it is neither acted on now nor when the input is released. Painting, resizing and the window
// system's questions are served by whoever processes events, which is safe now: EventClock does in its waits.
class UserInput final : public QObject {
  Q_OBJECT

public:
  UserInput() = default;
  ~UserInput() override;
  Q_DISABLE_COPY_MOVE(UserInput)

  void Hold(HeldPointer pointer);
  void Release();
  [[nodiscard]] bool IsHeld() const { return m_isHeld; }
  [[nodiscard]] HeldPointer Pointer() const { return m_pointer; } // of the last hold

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool m_isHeld = false;
  HeldPointer m_pointer = HeldPointer::Busy;
};

// Holds the input while a transfer runs, and the signals that would end the program.
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

// Lets the user act while it lives, for a question in the middle of a transfer. Nothing where no input is held.
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
