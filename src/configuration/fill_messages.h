// Messages that the windows and the command line tool share.
#pragma once

#include <string_view>

namespace mr4500x {

// The title of all messages about typed input.
inline constexpr char EntryErrorTitle[] = "Error";

inline constexpr char DataErrorTitle[] = "Data Error";
inline constexpr char DataErrorText[] = "Data occur error in the Radio, please re-set.";

inline constexpr char KeyConflictTitle[] = "Talk Around Or Reverse";
inline constexpr char KeyConflictText[] =
    "Talk Around or Reverse can't be present at the same time.If one key has been set to Talk Around or Reverse,"
    "any other key must not be set to Talk Around or Reverse.";

inline constexpr char TopSizeTitle[] = "MR4500X Programming Software";
inline constexpr char TopSizeText[] = "It has been reached to the Top Size of the Input Text.";

} // namespace mr4500x
