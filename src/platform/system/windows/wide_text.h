// Texts and paths as Windows takes them: UTF-16, paths with backslashes.
#pragma once

#include <string>
#include <string_view>

namespace mr4500x {

[[nodiscard]] std::wstring Wide(std::string_view text);
[[nodiscard]] std::string Narrow(std::wstring_view text);

// A path for a system call. One that is too long for the classic limit becomes absolute, with the prefix that lifts it.
[[nodiscard]] std::wstring WidePath(std::string_view path);
// The path without that prefix.
[[nodiscard]] std::string PlainPath(std::wstring_view path);

} // namespace mr4500x
