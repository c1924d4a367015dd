// Values of an INI file in UTF-8. Section and key names ignore the case of ASCII letters. All other lines are
// preserved. The file is read again each time, because another program may have changed it. A link to another user's
// file is not followed, because that user could control what is read or which file is written.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "file_system.h"

namespace mr4500x {

inline constexpr std::ptrdiff_t ProfileStringCharacters = 255; // a longer value counts as absent, and is not stored
inline constexpr std::size_t ProfileFileLimit = std::size_t{1} << 20;

// The value without surrounding blanks and one pair of quotes, or nullopt without the key. If a section or key occurs
// more than once, the first one counts.
[[nodiscard]] std::optional<std::string_view> FindIniValue(std::string_view text, std::string_view section,
                                                           std::string_view key);

// Changes the key's line, or adds it at the end of its section, or adds the section at the end of the text. Quotes a
// value that would not be read back as it is; line breaks become blanks. False, with no change, for names that an INI
// file can't hold.
[[nodiscard]] bool SetIniValue(std::string& text, std::string_view section, std::string_view key,
                               std::string_view value);

// The whole file; empty if it is missing, can't be read or reaches the limit.
[[nodiscard]] std::string ProfileText(FileSystem& files, const std::string& file);

[[nodiscard]] bool FitsProfileString(std::string_view value);
// The value or the default.
[[nodiscard]] std::string ProfileString(std::string_view profileText, std::string_view section, std::string_view key,
                                        std::string_view defaultText);

struct ProfileValue {
  std::string section, key, value;
};

// Writes all values or none. Creates the file and its folder if they are missing. Callers may ignore false: settings
// that can't be stored must not stop the user.
bool WriteProfileStrings(FileSystem& files, const std::string& file, std::span<const ProfileValue> values);

} // namespace mr4500x
