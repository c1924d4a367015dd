// The signals that ask a program to end: SIGINT (Ctrl-C), SIGTERM, SIGHUP and SIGQUIT. One policy holds for all
// programs:
//
//   A transfer runs to its end, however many signals come: a radio that was left halfway would be half programmed and
//   still in its session, and its port locked. What has not begun does not begin: the write after its backup, reading
//   back after the write, the next radio, the next file. A line says what was left out, and the exit status shows it.
//
//   program              ends after                                 exit status
//   mr4500x-cli          the transfer in progress                   the signal's own, which also ends a script's loop
//   mr4500x-cli fleet    the transfers in progress; a radio that    1 if any requested radio is left
//                        was written is read back as well
//   MR4500X              the transfer and its messages; unsaved     128 plus the signal
//                        work is kept
//   MR4500X-fleet        the same, and closes its window            128 plus the signal
//
// Without a transfer a program ends at once, a window after its event loop has heard of it.
#pragma once

#include <functional>
#include <memory>

namespace mr4500x {

// Holds the signals back until the last instance is gone, in any thread. Then each of them that came does what it did
// before: it ends the program, or is reported.
class EndSignalsHeld {
public:
  EndSignalsHeld();
  ~EndSignalsHeld();
  EndSignalsHeld(const EndSignalsHeld&) = delete;
  EndSignalsHeld& operator=(const EndSignalsHeld&) = delete;
};

// While they are held: whether one of them has come, so that nothing new may begin.
[[nodiscard]] bool IsEnding();

// While they are held: waits until there is something to read. False as soon as one of them has come, now or before.
[[nodiscard]] bool AwaitInput(int file);

// Reports the signals from the event loop instead of ending the program, so that it can end properly. One instance at a
// time.
enum class NextSignal {
  Ends,      // the same signal ends the program the second time: for one that holds signals during its transfers
  IsReported // for one whose transfers run in other threads
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
