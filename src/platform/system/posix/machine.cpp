#include "machine.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>

#include <fcntl.h>
#include <pwd.h>
#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace mr4500x {
namespace {

// The folder in an environment variable, or null. The XDG rules say to ignore a relative path.
const char* FolderIn(const char* variable) {
  const char* const folder = std::getenv(variable);
  return folder != nullptr && folder[0] == '/' ? folder : nullptr;
}

// Without HOME this must not be the root folder or a relative path, because folders would be created there.
std::string HomeFolder() {
  if (const char* const home = FolderIn("HOME")) return home;
  const passwd* const user = getpwuid(geteuid());
  return user != nullptr && user->pw_dir[0] == '/' ? user->pw_dir : "/nonexistent";
}

std::string XdgFolder(const char* variable, const char* otherwise) {
  if (const char* const configured = FolderIn(variable)) return std::string(configured) + "/MR4500X";
  return HomeFolder() + otherwise + "/MR4500X";
}

} // namespace

void PrepareProcess() {
  signal(SIGXFSZ, SIG_IGN);
  setenv("HOME", HomeFolder().c_str(), 1); // for Qt, as is the next
  if (FolderIn("XDG_CONFIG_HOME") == nullptr) unsetenv("XDG_CONFIG_HOME");
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
    if (fcntl(stream, F_GETFD) == -1) { // the lowest free number, which the file takes
      // Input must not seem to be empty, and output must not seem to arrive.
      const int access = stream == STDIN_FILENO ? O_WRONLY : stream == STDOUT_FILENO ? O_RDONLY : O_RDWR;
      static_cast<void>(open("/dev/null", access));
    }
}

std::string ProgramFolder() {
  std::error_code failed;
  const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", failed);
  return failed ? std::string() : executable.parent_path().string();
}

std::string UserConfigFolder() {
  return XdgFolder("XDG_CONFIG_HOME", "/.config");
}
std::string UserStateFolder() {
  return XdgFolder("XDG_STATE_HOME", "/.local/state");
}

LocalTime LocalNow() {
  return LocalTimeOf(std::time(nullptr));
}

LocalTime LocalTimeOf(std::time_t moment) {
  std::tm local{};
  localtime_r(&moment, &local);
  // The radio's time stamp ends at second 59: a leap second counts as 59.
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec > 59 ? 59 : local.tm_sec};
}

SteadyClock::SteadyClock() {
  // By default Linux may wake a sleeper 50 us late to save power, which adds up over hundreds of waits.
  constexpr unsigned long SlackNanoseconds = 1000;
  prctl(PR_SET_TIMERSLACK, SlackNanoseconds, 0UL, 0UL, 0UL);
}

Clock::Moment SteadyClock::Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return std::chrono::duration_cast<Moment>(std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec));
}

void SteadyClock::WaitUntil(Moment moment) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(moment);
  timespec deadline{};
  deadline.tv_sec = static_cast<time_t>(seconds.count());
  deadline.tv_nsec = static_cast<long>(std::chrono::nanoseconds(moment - seconds).count());
  while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &deadline, nullptr) == EINTR) {
  }
}

} // namespace mr4500x
