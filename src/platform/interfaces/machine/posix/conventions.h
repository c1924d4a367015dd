// The system's conventions for paths and line ends.
#pragma once

#include <string_view>

namespace mr4500x {

inline constexpr char Separator = '/';
inline constexpr std::string_view Separators = "/"; // all that a path may have
inline constexpr std::string_view LineEnd = "\n";
inline constexpr std::string_view InstallationMark; // a file beside a program that was installed; none here

inline bool IsRoot(std::string_view path) {
  return path == "/";
}
inline bool IsAbsolute(std::string_view path) {
  return path.starts_with('/');
}

} // namespace mr4500x
