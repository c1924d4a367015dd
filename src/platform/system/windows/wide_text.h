// Converts texts and paths for Windows: UTF-16, and backslashes in paths.
#pragma once

#include <string>
#include <string_view>

namespace mr4500x {

[[nodiscard]] std::wstring Wide(std::string_view text);
[[nodiscard]] std::string Narrow(std::wstring_view text);

// A path for a system call. A path beyond the classic limit becomes absolute, with the prefix that lifts the limit.
[[nodiscard]] std::wstring WidePath(std::string_view path);
// The path without that prefix.
[[nodiscard]] std::string PlainPath(std::wstring_view path);

} // namespace mr4500x
