// The messages of the channel grid and its dialogs, odd spellings included. All have the exclamation icon.
#pragma once

#include "editor_messages.h"
#include "translatable.h"

#include <string_view>

namespace mr4500x {

inline constexpr char FrequencyInvalidText[] = SHOWN("Frequency Invalid!");
inline constexpr char FiveToneInvalidText[] = SHOWN("Invalide 5 Tone!");
inline constexpr char FiveToneLengthText[] = SHOWN("The number of 5 Tone must be five!");

} // namespace mr4500x
