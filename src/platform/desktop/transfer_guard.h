// A transfer blocks the user, not the screen.
#pragma once

#include <QObject>

namespace mr4500x {

// While it lives the pointer shows that the program is busy, and what the user does in any window of the program is
// dropped: neither acted on now nor when the guard has gone. Painting, resizing and the window system's questions
// are served by whoever processes events, which is safe now: EventClock does in its waits.
class TransferGuard final : public QObject {
  Q_OBJECT

public:
  TransferGuard();
  ~TransferGuard() override;
  Q_DISABLE_COPY_MOVE(TransferGuard)

  [[nodiscard]] static bool IsActive() { return s_current != nullptr; }

  // Lets the user act while it lives, for a question in the middle of a transfer. Nothing where no guard is active.
  class Pause {
  public:
    Pause();
    ~Pause();
    Q_DISABLE_COPY_MOVE(Pause)

  private:
    TransferGuard* m_paused;
  };

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void Begin();
  void End();

  static TransferGuard* s_current;
};

} // namespace mr4500x
