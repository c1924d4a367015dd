// Changing a setting by its text, as strictly as the window would: what it could not produce is refused and changes
// nothing. A change brings its consequences with it, as in the window: a new mode empties the selective-call cells, a
// new lower limit starts the channels anew, a receive tone turns Tail Cut, a step rounds its frequency, a PTT ID that
// is not sent is blanked, the keys follow their rules.
#pragma once

#include "fields.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

struct Refusal {
  std::string allowed; // "one of OFF, 5s, 10s", "440 to 470 MHz"
};

// Nothing when the text was taken. Yes or no is "true" or "false".
[[nodiscard]] std::optional<Refusal> SetField(Configuration& configuration, FieldAt at, std::string_view text,
                                              const FieldTexts& texts);

// What a setting takes at present, in words.
[[nodiscard]] std::string AllowedFor(const Configuration& configuration, FieldAt at, const FieldTexts& texts);

// The texts that a choice offers at present; empty for other settings. A 5-tone cell takes codes besides.
[[nodiscard]] std::vector<std::string> ChoicesOf(const Configuration& configuration, FieldAt at,
                                                 const FieldTexts& texts);

// The selective-call and group-call cells of all channels, emptied for another mode.
void ResetSelcallCells(Configuration& configuration);

} // namespace mr4500x
