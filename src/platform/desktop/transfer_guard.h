// A transfer blocks the user, not the screen.
#pragma once

#include <QObject>

namespace mr4500x {

// The user's input to all windows of the program. While it is held the pointer shows that the program is busy, and
// what the user does is dropped: neither acted on now nor when it is released. Painting, resizing and the window
// system's questions are served by whoever processes events, which is safe now: EventClock does in its waits.
class UserInput final : public QObject {
  Q_OBJECT

public:
  UserInput() = default;
  ~UserInput() override;
  Q_DISABLE_COPY_MOVE(UserInput)

  void Hold();
  void Release();
  [[nodiscard]] bool IsHeld() const { return m_isHeld; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  bool m_isHeld = false;
};

// Holds the input while a transfer runs.
class TransferGuard {
public:
  explicit TransferGuard(UserInput& input) : m_input(input) { m_input.Hold(); }
  ~TransferGuard() { m_input.Release(); }
  Q_DISABLE_COPY_MOVE(TransferGuard)

private:
  UserInput& m_input;
};

// Lets the user act while it lives, for a question in the middle of a transfer. Nothing where no input is held.
class TransferPause {
public:
  explicit TransferPause(UserInput& input) : m_input(input), m_wasHeld(input.IsHeld()) { m_input.Release(); }
  ~TransferPause() {
    if (m_wasHeld) m_input.Hold();
  }
  Q_DISABLE_COPY_MOVE(TransferPause)

private:
  UserInput& m_input;
  bool m_wasHeld;
};

} // namespace mr4500x
