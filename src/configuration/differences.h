// What differs between two configurations, setting by setting, in the words of the windows.
#pragma once

#include "fields.h"

#include <string>
#include <vector>

namespace mr4500x {

struct Difference {
  FieldAt at;
  std::string before, after; // as ShownTextOf gives them
};

// In the order of the table of settings. Identity number and firmware version are no settings.
[[nodiscard]] std::vector<Difference> DifferencesBetween(const Configuration& before, const Configuration& after);

// What a user calls a setting: "CH3 Rx Freq (MHz)", "TTS 2 Gap Time(s)", "Beep Enable".
[[nodiscard]] std::string NameOf(FieldAt at);
// A heading without its line break.
[[nodiscard]] std::string OnOneLine(std::string_view label);
// The text of a setting, but "ON" or "OFF" for a check box, "yes" or "no" in a grid.
[[nodiscard]] std::string ShownTextOf(const Configuration& configuration, FieldAt at);

} // namespace mr4500x
