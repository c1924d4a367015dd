// Changes a setting by its text, as strictly as the window and with the same effects on other settings: a new mode
// empties the selective-call cells, a new lower limit resets the channels, a receive tone sets Tail Cut, a step rounds
// its frequency, an ID that is not sent is blanked, and the key rules apply.
#pragma once

#include "fields.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

struct Refusal {
  enum class Cause : std::uint8_t { NotAllowed, NeedsPoint, NeedsComma, GivenTwice };
  std::string allowed; // "one of OFF, 5s, 10s", "440 to 469.99375 MHz"
  Cause cause = Cause::NotAllowed;
  bool operator==(const Refusal&) const = default;
};
// "allowed: 1 to 255", "use a point", "given twice".
[[nodiscard]] std::string ReasonOf(const Refusal& refusal);

// Returns nullopt if the text was accepted. A refused text changes nothing. Yes and no are "true" and "false".
[[nodiscard]] std::optional<Refusal> SetField(Configuration& configuration, FieldAt at, std::string_view text,
                                              const FieldTexts& texts);

// Describes the values that a setting currently accepts.
[[nodiscard]] std::string AllowedFor(const Configuration& configuration, FieldAt at, const FieldTexts& texts);

// The current limits of a number or frequency, as texts. None for other settings, or if the setting can't be changed.
struct Limits {
  std::string min, max, step;
  std::string_view unit;
};
[[nodiscard]] std::optional<Limits> LimitsOf(const Configuration& configuration, FieldAt at, const FieldTexts& texts);

// The cells and boxes whose value a radio may hold although SetField would refuse it.
[[nodiscard]] std::vector<FieldAt> OutsideRules(const Configuration& configuration, const FieldTexts& texts);

// The items that a choice currently offers, as views into `texts` and the lists. Empty for other settings and for a
// choice that can't be changed. A 5-tone cell also accepts any code.
[[nodiscard]] std::vector<std::string_view> ChoicesOf(const Configuration& configuration, FieldAt at,
                                                      const FieldTexts& texts);

// Stores a new lower band limit (MHz), resets all channels of the image to it and returns their texts.
[[nodiscard]] std::array<ChannelTexts, ChannelCount> RestartChannels(RadioImage& image, int lowerLimit,
                                                                     const FieldTexts& texts);

// Sets the selective-call and group-call cells of all channels to "OFF" when the mode changes.
void ResetSelcallCells(Configuration& configuration);

} // namespace mr4500x
