// Values of an INI file. The file is read again each time, since another program may have changed it.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "file_system.h"

namespace mr4500x {

inline constexpr std::size_t ProfileStringBytes = 255; // the longest value that a read returns
inline constexpr std::size_t ProfileFileLimit = std::size_t{1} << 20;

// The whole file; empty if it is missing, can't be read or reaches the limit.
[[nodiscard]] std::string ProfileText(FileSystem& files, const std::string& file);

// The value or the default, cut to ProfileStringBytes without splitting a character.
[[nodiscard]] std::string ProfileString(std::string_view profileText, std::string_view section, std::string_view key,
                                        std::string_view defaultText);
[[nodiscard]] std::string ReadProfileString(FileSystem& files, const std::string& file, std::string_view section,
                                            std::string_view key, std::string_view defaultText);

struct ProfileValue {
  std::string section, key, value;
};

// Writes all values or none. Creates the file and its folder if they are missing. Callers may ignore false: settings
// that can't be stored must not stop the user.
bool WriteProfileStrings(FileSystem& files, const std::string& file, std::span<const ProfileValue> values);

} // namespace mr4500x
