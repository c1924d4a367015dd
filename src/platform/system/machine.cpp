#include "machine.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace mr4500x {

std::string ProgramFolder() {
  std::error_code failed;
  const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", failed);
  return failed ? std::string() : executable.parent_path().string();
}

std::string UserConfigFolder() {
  const char* const configured = std::getenv("XDG_CONFIG_HOME");
  // The XDG rules say to ignore a relative path.
  if (configured != nullptr && configured[0] == '/') return std::string(configured) + "/MR4500X";
  const char* const home = std::getenv("HOME");
  return std::string(home != nullptr ? home : "") + "/.config/MR4500X";
}

LocalTime LocalNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  // The radio's time stamp ends at second 59: a leap second counts as 59.
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec > 59 ? 59 : local.tm_sec};
}

} // namespace mr4500x
