// The messages of the function settings and signaling frames, odd spellings included. All have the exclamation icon.
#pragma once

#include <string_view>

namespace mr4500x {

inline constexpr std::string_view EntryErrorTitle = "Error";

inline constexpr std::string_view AniInvalidText = "Emergency ANI Invalid!";
inline constexpr std::string_view ConnectInvalidText = "Connect ID Invalid!";
inline constexpr std::string_view DisconnectInvalidText = "Disconnect ID Invalid!";

inline constexpr std::string_view LowerNotBelowText = "The lower limit value must be less than the upper limit value!";
inline constexpr std::string_view UpperNotAboveText = "The upper limit value must be more than the lower limit value!";
inline constexpr std::string_view LowerInvalidText = "The lower limit value is invalid!";
inline constexpr std::string_view UpperInvalidText = "The upper limit value is invalid!";
inline constexpr std::string_view LowerInvalidAtKeyText = "The lower limit value of frequency band is invalid!";
inline constexpr std::string_view BandChangeTitle = "Frequency Band Change";
inline constexpr std::string_view BandChangeText =
    "Change the lower limit value, all data will be initiated. Do you want to continue?";

inline constexpr std::string_view ResetTimeInvalidAtKeyText = "Auot Reset Time Invalid!";
inline constexpr std::string_view ResetTimeInvalidAtSpinnerText = "Auto Reset Time Invalid!";

inline constexpr std::string_view TtsFrequencyInvalidText = "TTS Frequency Invalid!";

} // namespace mr4500x
