// The system's conventions for paths and line ends, and where it has Qt's drivers for databases from.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace mr4500x {

inline constexpr char Separator = '/';
inline constexpr std::string_view Separators = "/"; // all that a path may have
inline constexpr std::string_view LineEnd = "\n";
inline constexpr std::string_view InstallationMark; // a file beside a program that was installed; none here

inline constexpr const char* SqliteDriver = "Debian: libqt6sql6-sqlite";
inline constexpr const char* PostgreSqlDriver = "Debian: libqt6sql6-psql";

inline bool IsRoot(std::string_view path) {
  return path == "/";
}
inline bool IsAbsolute(std::string_view path) {
  return path.starts_with('/');
}

// The number of an open file of this process that the path names, such as 1 for "/dev/stdout" or "/dev/fd/1".
inline std::optional<int> OpenFileNamed(std::string_view path) {
  if (path == "/dev/stdin") return 0;
  if (path == "/dev/stdout") return 1;
  if (path == "/dev/stderr") return 2;
  int number = 0;
  for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
    if (!path.starts_with(folder)) continue;
    const auto [end, error] = std::from_chars(path.data() + folder.size(), path.data() + path.size(), number);
    if (error == std::errc() && end == path.data() + path.size()) return number;
  }
  return std::nullopt;
}

} // namespace mr4500x
