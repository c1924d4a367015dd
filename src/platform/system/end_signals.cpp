#include "end_signals.h"

#include <signal.h>

#include <array>
#include <atomic>
#include <mutex>

namespace mr4500x {
namespace {

struct HeldSignal {
  int number;
  struct sigaction before {};
  std::atomic<bool> isWaiting = false; // all that a handler touches
};
static_assert(std::atomic<bool>::is_always_lock_free);

// Signals are the process's own, and so are these.
std::array<HeldSignal, 4> heldSignals = {{{SIGINT}, {SIGTERM}, {SIGHUP}, {SIGQUIT}}};
std::mutex mutex;
int holders = 0;

void KeepWaiting(int number) {
  for (HeldSignal& held : heldSignals)
    if (held.number == number) held.isWaiting = true;
}

} // namespace

// By handlers and not by the signal mask: that is each thread's own, and Qt starts threads.
EndSignalsHeld::EndSignalsHeld() {
  const std::lock_guard lock(mutex);
  if (holders++ > 0) return;
  struct sigaction keep {};
  keep.sa_handler = KeepWaiting;
  keep.sa_flags = SA_RESTART;
  sigemptyset(&keep.sa_mask);
  for (HeldSignal& held : heldSignals) {
    sigaction(held.number, nullptr, &held.before);
    if (held.before.sa_handler != SIG_IGN) sigaction(held.number, &keep, nullptr);
  }
}

EndSignalsHeld::~EndSignalsHeld() {
  {
    const std::lock_guard lock(mutex);
    if (--holders > 0) return;
    for (const HeldSignal& held : heldSignals)
      sigaction(held.number, &held.before, nullptr);
  }
  // Outside the lock: a handler of the program's own may hold signals itself, and then they go on waiting.
  for (HeldSignal& held : heldSignals)
    if (held.isWaiting.exchange(false)) raise(held.number);
}

} // namespace mr4500x
