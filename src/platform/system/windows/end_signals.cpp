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

class ConsoleEvents {
public:
  static ConsoleEvents& Instance() {
    static ConsoleEvents* const events = new ConsoleEvents; // used by a thread that outlives static objects
    return *events;
  }

  void Hold() {
    const std::lock_guard lock(m_mutex);
    ++m_holders;
  }
  void Release() {
    std::optional<DWORD> event;
    {
      const std::lock_guard lock(m_mutex);
      if (--m_holders > 0) return;
      event = std::exchange(m_held, std::nullopt);
      ResetEvent(m_arrived);
    }
    m_released.notify_all();
    if (event && !Report(*event)) ExitProcess(STATUS_CONTROL_C_EXIT);
  }
  [[nodiscard]] bool IsEnding() {
    const std::lock_guard lock(m_mutex);
    return m_held.has_value();
  }
  [[nodiscard]] HANDLE Arrived() const { return m_arrived; }

  void SetReport(std::function<void(int)> report, bool isLast) {
    const std::lock_guard lock(m_mutex);
    m_report = std::move(report);
    m_isLast = isLast;
  }

private:
  ConsoleEvents() : m_arrived(CreateEventW(nullptr, TRUE, FALSE, nullptr)) { SetConsoleCtrlHandler(Handle, TRUE); }

  static BOOL WINAPI Handle(DWORD event) { return Instance().Take(event) ? TRUE : FALSE; }

  // False: the system ends the program.
  bool Take(DWORD event) {
    std::unique_lock lock(m_mutex);
    if (m_holders > 0) {
      m_held = event;
      SetEvent(m_arrived);
      if (!EndsWithHandler(event)) return true;
      m_released.wait(lock, [this] { return m_holders == 0; });
    }
    lock.unlock();
    if (!Report(event)) return false;
    if (EndsWithHandler(event)) Sleep(INFINITE); // until the program has ended
    return true;
  }

  bool Report(DWORD event) {
    std::function<void(int)> report;
    {
      const std::lock_guard lock(m_mutex);
      report = m_report;
      if (m_isLast) m_report = nullptr;
    }
    if (report) report(EndsWithHandler(event) ? SIGTERM : SIGINT);
    return static_cast<bool>(report);
  }

  std::mutex m_mutex;
  std::condition_variable m_released;
  const HANDLE m_arrived; // set while one is held
  int m_holders = 0;
  std::optional<DWORD> m_held;
  std::function<void(int)> m_report;
  bool m_isLast = false;
};

} // namespace

void ReportConsoleEvents(std::function<void(int)> report, bool isLast) {
  ConsoleEvents::Instance().SetReport(std::move(report), isLast);
}

EndSignalsHeld::EndSignalsHeld() {
  ConsoleEvents::Instance().Hold();
}
EndSignalsHeld::~EndSignalsHeld() {
  ConsoleEvents::Instance().Release();
}

bool IsEnding() {
  return ConsoleEvents::Instance().IsEnding();
}

bool AwaitInput(int file) {
  const std::array handles = {ConsoleEvents::Instance().Arrived(), reinterpret_cast<HANDLE>(_get_osfhandle(file))};
  return WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(), FALSE, INFINITE) != WAIT_OBJECT_0;
}

} // namespace mr4500x
