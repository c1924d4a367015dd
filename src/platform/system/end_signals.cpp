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
  std::atomic<bool> isWaiting = false; // the only thing that the handler touches
};
static_assert(std::atomic<bool>::is_always_lock_free);

// Global, as signal handlers are.
std::array<HeldSignal, 4> heldSignals = {{{SIGINT}, {SIGTERM}, {SIGHUP}, {SIGQUIT}}};
std::mutex mutex;
int holders = 0;

void KeepWaiting(int number) {
  for (HeldSignal& held : heldSignals)
    if (held.number == number) held.isWaiting = true;
}

} // namespace

// Handlers rather than a signal mask: masks are per thread, and Qt starts threads.
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
  // Outside the lock: the program's own handler may hold signals too, which then stay pending.
  for (HeldSignal& held : heldSignals)
    if (held.isWaiting.exchange(false)) raise(held.number);
}

} // namespace mr4500x
