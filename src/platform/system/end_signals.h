// Signals that end the program: SIGINT, SIGTERM, SIGHUP and SIGQUIT.
#pragma once

#include <functional>
#include <memory>

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

// While they are held: waits until there is something to read. False as soon as one of them has come, now or before.
[[nodiscard]] bool AwaitInput(int file);

// Reports SIGINT, SIGTERM and SIGHUP from the event loop instead of ending the program, so that it can end properly.
// One instance at a time.
enum class NextSignal { Ends, IsReported }; // what the same signal does a second time
class EndSignalsHeard {
public:
  explicit EndSignalsHeard(std::function<void(int signal)> report, NextSignal next = NextSignal::Ends);
  ~EndSignalsHeard();
  EndSignalsHeard(const EndSignalsHeard&) = delete;
  EndSignalsHeard& operator=(const EndSignalsHeard&) = delete;

private:
  class Pipe;
  std::unique_ptr<Pipe> m_pipe;
};

} // namespace mr4500x
