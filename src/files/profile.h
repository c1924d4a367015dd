// Profile strings: the values of an INI file, read with a default and written key by key. The file is read anew each
// time, for another program may have changed it. What the values mean is left to settings.h and recent_files.h.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "file_system.h"

namespace mr4500x {

inline constexpr std::size_t ProfileStringBytes = 255; // the most that a read yields
inline constexpr std::size_t ProfileFileLimit = std::size_t{1} << 20;

// The whole file; empty where it is missing, can't be read or reaches the limit.
[[nodiscard]] std::string ProfileText(FileSystem& files, const std::string& file);

// The value, or the default where there is none, cut between two characters to the bytes that a read yields.
[[nodiscard]] std::string ProfileString(std::string_view profileText, std::string_view section, std::string_view key,
                                        std::string_view defaultText);
[[nodiscard]] std::string ReadProfileString(FileSystem& files, const std::string& file, std::string_view section,
                                            std::string_view key, std::string_view defaultText);

struct ProfileValue {
  std::string section, key, value;
};

// Writes values in their order and saves once: all of them stand in the file then, or none. The file and its folder
// are created where they are missing. Settings are no reason to stop anybody: false may be ignored.
bool WriteProfileStrings(FileSystem& files, const std::string& file, std::span<const ProfileValue> values);

} // namespace mr4500x
