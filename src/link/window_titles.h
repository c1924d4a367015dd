// The main window's titles that name no file. The four that follow a transfer mark the data as a radio's.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace mr4500x {

inline constexpr std::string_view BareTitle = "MR4500X Programming Software";
inline constexpr std::string_view ReadTitle = "Read Completely - MR4500X Programming Software";
inline constexpr std::string_view WriteTitle = "Write Completely - MR4500X Programming Software";
inline constexpr std::string_view ReadInfoTitle = "Read Information Completely - MR4500X Programming Software";
inline constexpr std::string_view WriteInfoTitle = "Write Information Completely - MR4500X Programming Software";

inline constexpr std::array RadioTitles = {ReadTitle, WriteTitle, ReadInfoTitle, WriteInfoTitle};

constexpr bool IsRadioTitle(std::string_view title) {
  return std::find(RadioTitles.begin(), RadioTitles.end(), title) != RadioTitles.end();
}

} // namespace mr4500x
