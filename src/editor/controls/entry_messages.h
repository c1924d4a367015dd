// The messages about entries, with the exclamation icon. "Invalide", "Auot" and "initiated" are spelled so on purpose.
#pragma once

#include "fill_messages.h"

namespace mr4500x {

inline constexpr char FrequencyInvalidText[] = "Frequency Invalid!";
inline constexpr char FiveToneInvalidText[] = "Invalide 5 Tone!";
inline constexpr char FiveToneLengthText[] = "The number of 5 Tone must be five!";

inline constexpr char AniInvalidText[] = "Emergency ANI Invalid!";
inline constexpr char ConnectInvalidText[] = "Connect ID Invalid!";
inline constexpr char DisconnectInvalidText[] = "Disconnect ID Invalid!";

inline constexpr char LowerNotBelowText[] = "The lower limit value must be less than the upper limit value!";
inline constexpr char UpperNotAboveText[] = "The upper limit value must be more than the lower limit value!";
inline constexpr char LowerInvalidText[] = "The lower limit value is invalid!";
inline constexpr char UpperInvalidText[] = "The upper limit value is invalid!";
inline constexpr char LowerInvalidAtKeyText[] = "The lower limit value of frequency band is invalid!";
inline constexpr char BandChangeTitle[] = "Frequency Band Change";
inline constexpr char BandChangeText[] =
    "Change the lower limit value, all data will be initiated. Do you want to continue?";

inline constexpr char ResetTimeInvalidAtKeyText[] = "Auot Reset Time Invalid!";
inline constexpr char ResetTimeInvalidAtSpinnerText[] = "Auto Reset Time Invalid!";

inline constexpr char TtsFrequencyInvalidText[] = "TTS Frequency Invalid!";

} // namespace mr4500x
