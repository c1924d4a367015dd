#include "end_signals.h"

#include <csignal>

namespace mr4500x {
namespace {

volatile std::sig_atomic_t waitingSignal = 0; // a handler reaches nothing else

void KeepWaiting(int signal) {
  waitingSignal = signal;
}

} // namespace

// By handlers and not by the signal mask: that is each thread's own, and Qt starts threads.
EndSignalsHeld::EndSignalsHeld() {
  waitingSignal = 0;
  struct sigaction keep {};
  keep.sa_handler = KeepWaiting;
  keep.sa_flags = SA_RESTART;
  sigemptyset(&keep.sa_mask);
  for (std::size_t i = 0; i < Signals.size(); ++i) {
    sigaction(Signals[i], nullptr, &m_before[i]);
    if (m_before[i].sa_handler != SIG_IGN) sigaction(Signals[i], &keep, nullptr);
  }
}

EndSignalsHeld::~EndSignalsHeld() {
  for (std::size_t i = 0; i < Signals.size(); ++i)
    sigaction(Signals[i], &m_before[i], nullptr);
  if (waitingSignal != 0) raise(waitingSignal);
}

} // namespace mr4500x
