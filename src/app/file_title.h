// The main window's title while the data belongs to a file: it names the file, and is the only record of it.
#pragma once

#include "window_titles.h"

#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::string_view TitleSeparator = " - ";

inline std::string FileTitle(std::string_view path) {
  return std::string(BareTitle).append(TitleSeparator).append(path);
}

// The path in a file title.
inline std::string PathInTitle(std::string_view title) {
  return std::string(title.substr(BareTitle.size() + TitleSeparator.size()));
}

} // namespace mr4500x
