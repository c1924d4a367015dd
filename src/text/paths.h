// Converts paths of the standard library from and to UTF-8. On some systems the library's own constructor assumes
// another encoding.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace mr4500x {

[[nodiscard]] inline std::filesystem::path PathOf(std::string_view text) {
  return {std::u8string(text.begin(), text.end())};
}
[[nodiscard]] inline std::string TextOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

} // namespace mr4500x
