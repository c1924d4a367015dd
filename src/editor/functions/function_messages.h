// The messages of the function settings and signaling frames, odd spellings included. All have the exclamation icon.
#pragma once

#include "editor_messages.h"
#include "translatable.h"

#include <string_view>

namespace mr4500x {

inline constexpr char AniInvalidText[] = SHOWN("Emergency ANI Invalid!");
inline constexpr char ConnectInvalidText[] = SHOWN("Connect ID Invalid!");
inline constexpr char DisconnectInvalidText[] = SHOWN("Disconnect ID Invalid!");

inline constexpr char LowerNotBelowText[] = SHOWN("The lower limit value must be less than the upper limit value!");
inline constexpr char UpperNotAboveText[] = SHOWN("The upper limit value must be more than the lower limit value!");
inline constexpr char LowerInvalidText[] = SHOWN("The lower limit value is invalid!");
inline constexpr char UpperInvalidText[] = SHOWN("The upper limit value is invalid!");
inline constexpr char LowerInvalidAtKeyText[] = SHOWN("The lower limit value of frequency band is invalid!");
inline constexpr char BandChangeTitle[] = SHOWN("Frequency Band Change");
inline constexpr char BandChangeText[] =
    SHOWN("Change the lower limit value, all data will be initiated. Do you want to continue?");

inline constexpr char ResetTimeInvalidAtKeyText[] = SHOWN("Auot Reset Time Invalid!");
inline constexpr char ResetTimeInvalidAtSpinnerText[] = SHOWN("Auto Reset Time Invalid!");

inline constexpr char TtsFrequencyInvalidText[] = SHOWN("TTS Frequency Invalid!");

} // namespace mr4500x
