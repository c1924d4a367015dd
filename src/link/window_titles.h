// The main window's titles that name no file. The four that follow a transfer mark the data as a radio's.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace mr4500x {

inline constexpr char ReadTitle[] = "Read Completely - MR4500X Programming Software";
inline constexpr char WriteTitle[] = "Write Completely - MR4500X Programming Software";
inline constexpr char ReadInfoTitle[] = "Read Information Completely - MR4500X Programming Software";
inline constexpr char WriteInfoTitle[] = "Write Information Completely - MR4500X Programming Software";

// The product's name, in every language.
inline constexpr std::string_view BareTitle = "MR4500X Programming Software";

inline constexpr std::array<std::string_view, 4> RadioTitles = {ReadTitle, WriteTitle, ReadInfoTitle, WriteInfoTitle};

constexpr bool IsRadioTitle(std::string_view title) {
  return std::find(RadioTitles.begin(), RadioTitles.end(), title) != RadioTitles.end();
}

} // namespace mr4500x
