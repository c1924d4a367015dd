#pragma once

namespace mr4500x {

// Defers SIGINT, SIGTERM, SIGHUP and SIGQUIT until the last instance is gone, in any thread. A transfer that was killed
// halfway would leave the radio half programmed and in its session, and the port locked.
class EndSignalsHeld {
public:
  EndSignalsHeld();
  ~EndSignalsHeld();
  EndSignalsHeld(const EndSignalsHeld&) = delete;
  EndSignalsHeld& operator=(const EndSignalsHeld&) = delete;
};

} // namespace mr4500x
