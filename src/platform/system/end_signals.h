// The signals that ask a program to end: SIGINT (Ctrl-C), SIGTERM, SIGHUP and SIGQUIT. One policy holds for all
// programs:
//
//   A transfer runs to its end, however many signals come: a radio that was left halfway would be half programmed and
//   still in its session, and its port locked. The next step is not started: the write after its backup, the read-back
//   after the write, the next radio, the next file. A message names the step, and the exit status shows it.
//
//   program              ends after                                 exit status
//   mr4500x-cli          the transfer in progress                   the signal's own, which also ends a script's loop
//   mr4500x-cli fleet    the transfers in progress; a radio that    1 if any requested radio is left
//                        was written is read back as well
//   MR4500X              the transfer and its messages; unsaved     128 plus the signal
//                        work is kept
//   MR4500X-fleet        the same, and closes its window            128 plus the signal
//
// Without a transfer a program ends at once, a window as soon as its event loop has processed the signal.
#pragma once

#include <functional>
#include <memory>

namespace mr4500x {

// Holds the signals back until the last instance in any thread is destroyed. Each signal that arrived then has its
// usual effect: it ends the program, or is reported.
class EndSignalsHeld {
public:
  EndSignalsHeld();
  ~EndSignalsHeld();
  EndSignalsHeld(const EndSignalsHeld&) = delete;
  EndSignalsHeld& operator=(const EndSignalsHeld&) = delete;
};

// While signals are held: whether one has arrived, so that no further transfer may be started.
[[nodiscard]] bool IsEnding();

// While signals are held: waits until there is something to read. Returns false as soon as a signal has arrived, even
// before the call.
[[nodiscard]] bool AwaitInput(int file);

// Reports the signals from the event loop instead of ending the program, so that it can shut down properly. Only one
// instance may exist at a time.
enum class NextSignal {
  Ends,      // a second signal ends the program; for programs that hold signals during transfers
  IsReported // for programs whose transfers run in other threads
};
class EndSignalsHeard {
public:
  EndSignalsHeard(std::function<void(int signal)> report, NextSignal next);
  ~EndSignalsHeard();
  EndSignalsHeard(const EndSignalsHeard&) = delete;
  EndSignalsHeard& operator=(const EndSignalsHeard&) = delete;

private:
  class Reporter;
  std::unique_ptr<Reporter> m_reporter;
};

} // namespace mr4500x
