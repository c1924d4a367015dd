// Ctrl-C in the terminal, a logout, a shutdown: signals that end the program wait while one of these lives, in any
// thread, and end it when the last has gone. Stopped half-way a transfer would leave the radio in its session, half
// programmed, and the port locked.
#pragma once

namespace mr4500x {

class EndSignalsHeld {
public:
  EndSignalsHeld();
  ~EndSignalsHeld();
  EndSignalsHeld(const EndSignalsHeld&) = delete;
  EndSignalsHeld& operator=(const EndSignalsHeld&) = delete;
};

} // namespace mr4500x
