// The system's conventions for paths and line ends, and where it has Qt's drivers for databases from.
#pragma once

#include <optional>
#include <string_view>

namespace mr4500x {

inline constexpr char Separator = '\\';
inline constexpr std::string_view Separators = "\\/"; // all that a path may have
inline constexpr std::string_view LineEnd = "\r\n";
inline constexpr std::string_view InstallationMark = "uninstall.exe"; // a file beside a program that was installed

inline constexpr const char* SqliteDriver = "install the program again";
inline constexpr const char* PostgreSqlDriver = "not available on Windows";

// "\" or "C:\"
inline bool IsRoot(std::string_view path) {
  return !path.empty() && Separators.find(path.back()) != std::string_view::npos &&
         (path.size() == 1 || (path.size() == 3 && path[1] == ':'));
}
// Also "\\server\share".
inline bool IsAbsolute(std::string_view path) {
  return !path.empty() &&
         (Separators.find(path.front()) != std::string_view::npos || (path.size() > 1 && path[1] == ':'));
}

// Open files have no names here.
inline std::optional<int> OpenFileNamed(std::string_view /*path*/) {
  return std::nullopt;
}

} // namespace mr4500x
