#include "end_signals.h"

#include <QSocketNotifier>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <mutex>
#include <optional>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

namespace mr4500x {
namespace {

struct EndSignal {
  int number;
  struct sigaction before {};
  std::atomic<bool> isWaiting = false; // the only thing that the handler touches
};
static_assert(std::atomic<bool>::is_always_lock_free);

// Global, as signal handlers are.
std::array<EndSignal, 4> endSignals = {{{SIGINT}, {SIGTERM}, {SIGHUP}, {SIGQUIT}}};
std::mutex mutex;
int holders = 0;

void KeepWaiting(int number) {
  for (EndSignal& held : endSignals)
    if (held.number == number) held.isWaiting = true;
}

// The end of the pipe that the handler writes to. A handler may do little else.
int reportingEnd = -1;

void Report(int number) {
  const int error = errno;
  const auto byte = static_cast<char>(number);
  static_cast<void>(!write(reportingEnd, &byte, 1));
  errno = error;
}

// A signal that is ignored, as under nohup, remains ignored.
void Handle(int number, void (*handler)(int), int flags) {
  struct sigaction action {};
  sigaction(number, nullptr, &action);
  if (action.sa_handler == SIG_IGN) return;
  action = {};
  action.sa_handler = handler;
  action.sa_flags = flags;
  sigaction(number, &action, nullptr);
}

} // namespace

class EndSignalsHeard::Reporter {
public:
  Reporter(std::function<void(int)> report, NextSignal next) : m_report(std::move(report)) {
    if (pipe2(m_ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return; // then the signals end the program as usual
    m_notifier.emplace(m_ends[0], QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, [this] { Read(); });
    reportingEnd = m_ends[1];
    for (const EndSignal& each : endSignals)
      Handle(each.number, Report, SA_RESTART | (next == NextSignal::Ends ? static_cast<int>(SA_RESETHAND) : 0));
  }
  ~Reporter() {
    if (!m_notifier) return;
    for (const EndSignal& each : endSignals)
      Handle(each.number, SIG_DFL, 0);
    for (const int end : m_ends)
      close(end);
  }
  Reporter(const Reporter&) = delete;
  Reporter& operator=(const Reporter&) = delete;

private:
  void Read() {
    char number = 0;
    while (read(m_ends[0], &number, 1) == 1)
      m_report(number);
  }

  std::function<void(int)> m_report;
  std::array<int, 2> m_ends{};
  std::optional<QSocketNotifier> m_notifier;
};

EndSignalsHeard::EndSignalsHeard(std::function<void(int)> report, NextSignal next)
    : m_reporter(std::make_unique<Reporter>(std::move(report), next)) {}

EndSignalsHeard::~EndSignalsHeard() = default;

// Uses handlers rather than a signal mask, because masks are per thread and Qt starts threads.
EndSignalsHeld::EndSignalsHeld() {
  const std::lock_guard lock(mutex);
  if (holders++ > 0) return;
  for (EndSignal& held : endSignals) {
    sigaction(held.number, nullptr, &held.before);
    Handle(held.number, KeepWaiting, SA_RESTART);
  }
}

bool IsEnding() {
  return std::ranges::any_of(endSignals, [](const EndSignal& held) { return held.isWaiting.load(); });
}

bool AwaitInput(int file) {
  sigset_t ends, before;
  sigemptyset(&ends);
  for (const EndSignal& held : endSignals)
    sigaddset(&ends, held.number);
  pthread_sigmask(SIG_BLOCK, &ends, &before); // from now on they arrive only while ppoll waits
  pollfd input{file, POLLIN, 0};
  bool isEnding = false;
  int ready = -1;
  while (!isEnding && ready < 0) {
    isEnding = IsEnding();
    if (!isEnding) ready = ppoll(&input, 1, nullptr, &before);
    if (ready < 0 && errno != EINTR) break;
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return !isEnding;
}

EndSignalsHeld::~EndSignalsHeld() {
  {
    const std::lock_guard lock(mutex);
    if (--holders > 0) return;
    for (const EndSignal& held : endSignals)
      sigaction(held.number, &held.before, nullptr);
  }
  // Outside the lock, because the program's own handler may also hold signals, which then remain pending.
  for (EndSignal& held : endSignals)
    if (held.isWaiting.exchange(false)) raise(held.number);
}

} // namespace mr4500x
