// The list of recently used data files. It lives in the settings file, slot by slot.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "file_system.h"

namespace mr4500x {

inline constexpr std::size_t RecentFileCount = 4;

// Slot k at index k - 1; nothing in a slot that is empty.
using RecentFileList = std::array<std::optional<std::string>, RecentFileCount>;

[[nodiscard]] RecentFileList RecentFiles(FileSystem& files, const std::string& settingsFile);

// Both answer false when the list could not be stored, which may be ignored.
bool AddRecent(FileSystem& files, const std::string& settingsFile, const std::string& path);
bool RemoveRecent(FileSystem& files, const std::string& settingsFile, const std::string& path);

// The menu's text for a slot, counted from 1. The path begins at its fourth character.
[[nodiscard]] std::string RecentCaption(std::size_t slot, std::string_view path);

// The same path but for blanks at the ends and letter case. The case of ASCII, Latin-1, Latin Extended-A, Greek and
// Cyrillic letters is known, whatever the user's locale.
[[nodiscard]] bool IsSamePath(std::string_view a, std::string_view b);

} // namespace mr4500x
