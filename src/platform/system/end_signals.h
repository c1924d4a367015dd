// Ctrl-C in the terminal, a logout, a shutdown: signals that end the program wait while one of these lives, and end it
// then. Stopped half-way a transfer would leave the radio in its session, half programmed, and the port locked.
#pragma once

#include <array>

#include <signal.h>

namespace mr4500x {

class EndSignalsHeld {
public:
  EndSignalsHeld();
  ~EndSignalsHeld();
  EndSignalsHeld(const EndSignalsHeld&) = delete;
  EndSignalsHeld& operator=(const EndSignalsHeld&) = delete;

  static constexpr std::array Signals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

private:
  std::array<struct sigaction, Signals.size()> m_before{};
};

} // namespace mr4500x
