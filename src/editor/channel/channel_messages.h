// The messages of the channel grid and its dialogs, odd spellings included. All have the exclamation icon.
#pragma once

#include "fill_messages.h"

#include <string_view>

namespace mr4500x {

inline constexpr char FrequencyInvalidText[] = "Frequency Invalid!";
inline constexpr char FiveToneInvalidText[] = "Invalide 5 Tone!";
inline constexpr char FiveToneLengthText[] = "The number of 5 Tone must be five!";

} // namespace mr4500x
