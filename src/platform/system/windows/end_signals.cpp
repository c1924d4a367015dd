#include "end_signals.h"

#include "console_events.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <optional>
#include <utility>

#include <io.h>
#include <windows.h>

namespace mr4500x {
namespace {

// The program is ended as soon as the handler of such an event returns, and in any case after five seconds.
bool EndsWithHandler(DWORD event) {
  return event == CTRL_CLOSE_EVENT || event == CTRL_LOGOFF_EVENT || event == CTRL_SHUTDOWN_EVENT;
}

// Used by a thread that outlives static objects, so it is never destroyed.
struct ConsoleEvents {
  ConsoleEvents();

  std::mutex mutex;
  std::condition_variable released;
  const HANDLE arrived = CreateEventW(nullptr, TRUE, FALSE, nullptr); // set while one is held
  int holders = 0;
  std::optional<DWORD> held;
  std::function<void(int)> report;
  bool isLast = false;
};

ConsoleEvents& Events() {
  static ConsoleEvents* const events = new ConsoleEvents;
  return *events;
}

// Returns false if nobody asked for reports, and the event ends the program.
bool Report(DWORD event) {
  std::function<void(int)> report;
  {
    const std::lock_guard lock(Events().mutex);
    report = Events().isLast ? std::exchange(Events().report, nullptr) : Events().report;
  }
  if (report) report(EndsWithHandler(event) ? SIGTERM : SIGINT);
  return static_cast<bool>(report);
}

// FALSE: the system ends the program.
BOOL WINAPI Take(DWORD event) {
  ConsoleEvents& events = Events();
  std::unique_lock lock(events.mutex);
  if (events.holders > 0) {
    events.held = event;
    SetEvent(events.arrived);
    if (!EndsWithHandler(event)) return TRUE;
    events.released.wait(lock, [&] { return events.holders == 0; });
  }
  lock.unlock();
  if (!Report(event)) return FALSE;
  if (EndsWithHandler(event)) Sleep(INFINITE); // until the program has ended
  return TRUE;
}

ConsoleEvents::ConsoleEvents() {
  SetConsoleCtrlHandler(Take, TRUE);
}

} // namespace

void ReportConsoleEvents(std::function<void(int signal)> report, bool isLast) {
  const std::lock_guard lock(Events().mutex);
  Events().report = std::move(report);
  Events().isLast = isLast;
}

EndSignalsHeld::EndSignalsHeld() {
  const std::lock_guard lock(Events().mutex);
  ++Events().holders;
}
EndSignalsHeld::~EndSignalsHeld() {
  ConsoleEvents& events = Events();
  std::unique_lock lock(events.mutex);
  if (--events.holders > 0) return;
  const std::optional<DWORD> event = std::exchange(events.held, std::nullopt);
  ResetEvent(events.arrived);
  lock.unlock();
  events.released.notify_all();
  if (event && !Report(*event)) ExitProcess(STATUS_CONTROL_C_EXIT);
}

bool IsEnding() {
  const std::lock_guard lock(Events().mutex);
  return Events().held.has_value();
}

bool AwaitInput(int file) {
  const std::array handles = {Events().arrived, reinterpret_cast<HANDLE>(_get_osfhandle(file))};
  return WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(), FALSE, INFINITE) != WAIT_OBJECT_0;
}

} // namespace mr4500x
