// The list of recently used data files, kept in the settings file.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "file_system.h"

namespace mr4500x {

inline constexpr std::size_t RecentFileCount = 4;

// Slot k is at index k - 1; nullopt if it is empty.
using RecentFileList = std::array<std::optional<std::string>, RecentFileCount>;

[[nodiscard]] RecentFileList RecentFiles(FileSystem& files, const std::string& settingsFile);

// Both return false if the list could not be stored, which may be ignored.
bool AddRecent(FileSystem& files, const std::string& settingsFile, const std::string& path);
bool RemoveRecent(FileSystem& files, const std::string& settingsFile, const std::string& path);

// The menu text of a slot, from 1. The path starts at the fourth character.
[[nodiscard]] std::string RecentCaption(std::size_t slot, std::string_view path);

// Ignores blanks at the ends and the case of ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic letters, in every
// locale.
[[nodiscard]] bool IsSamePath(std::string_view a, std::string_view b);

} // namespace mr4500x
