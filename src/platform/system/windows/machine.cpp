#include "machine.h"

#include "wide_text.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <thread>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace mr4500x {
namespace {

std::string UserFolder(const wchar_t* variable) {
  const wchar_t* const folder = _wgetenv(variable);
  return folder != nullptr ? Narrow(folder) + R"(\MR4500X)" : std::string();
}

} // namespace

// Data files go through the standard streams byte by byte, and texts are UTF-8.
void PrepareProcess() {
  // For each thread, Qt would destroy a stack of its compiled regular expressions after the compiler's runtime has
  // freed it, and the program would crash or hang at its end.
  _putenv("QT_ENABLE_REGEXP_JIT=0");
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX); // no message boxes about an empty drive
  static const UINT codePage = GetConsoleOutputCP();
  if (codePage != 0 && SetConsoleOutputCP(CP_UTF8) != FALSE) std::atexit([] { SetConsoleOutputCP(codePage); });
  for (const auto& [stream, number] : {std::pair(stdin, 0), {stdout, 1}, {stderr, 2}}) {
    if (_fileno(stream) < 0) static_cast<void>(std::freopen("NUL", number == 0 ? "rb" : "wb", stream));
    if (_fileno(stream) >= 0) _setmode(_fileno(stream), _O_BINARY);
  }
}

std::string ProgramFolder() {
  std::wstring path(32768, L'\0'); // the longest possible path
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  path.resize(std::min(path.rfind(L'\\'), path.size()));
  return PlainPath(path);
}

std::string UserConfigFolder() {
  return UserFolder(L"APPDATA");
}
std::string UserStateFolder() {
  return UserFolder(L"LOCALAPPDATA");
}

LocalTime LocalNow() {
  return LocalTimeOf(std::time(nullptr));
}

LocalTime LocalTimeOf(std::time_t moment) {
  std::tm local{};
  localtime_s(&local, &moment);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

SteadyClock::SteadyClock() = default;

Clock::Moment SteadyClock::Now() {
  return std::chrono::duration_cast<Moment>(std::chrono::steady_clock::now().time_since_epoch());
}

// The timer may be late by up to its resolution, so the end of the wait polls the clock. There is a new timer for each
// wait, because the destructors of a thread's variables run after the compiler's runtime has freed their memory.
void SteadyClock::WaitUntil(Moment moment) {
  constexpr Moment Lateness{400};
  constexpr DWORD HighResolution = 2; // CREATE_WAITABLE_TIMER_HIGH_RESOLUTION; without it, a wait may be one tick late
  HANDLE timer = CreateWaitableTimerExW(nullptr, nullptr, HighResolution, TIMER_ALL_ACCESS);
  if (timer == nullptr) timer = CreateWaitableTimerExW(nullptr, nullptr, 0, TIMER_ALL_ACCESS);
  if (const Moment left = moment - Now() - Lateness; left.count() > 0) {
    LARGE_INTEGER due{};
    due.QuadPart = -10 * left.count(); // relative, in units of 100 ns
    if (SetWaitableTimer(timer, &due, 0, nullptr, nullptr, FALSE) != FALSE) WaitForSingleObject(timer, INFINITE);
  }
  CloseHandle(timer);
  while (Now() < moment)
    std::this_thread::yield();
}

} // namespace mr4500x
