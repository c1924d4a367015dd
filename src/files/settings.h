// The program's settings file: where it lives, and the values in it other than the recent files.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "file_system.h"

namespace mr4500x {

inline constexpr int LowestPort = 1;
inline constexpr int HighestPort = 16;

// Whether the program may keep files beside itself: not in a folder of the package manager's, where nobody's own files
// go, the administrator's neither.
[[nodiscard]] bool MayKeepFilesIn(FileSystem& files, const std::string& programFolder);

// The program folder's file where there is one or where one can be created, else that of the user's configuration
// folder. So an installed program can bring settings for everybody: with a file in a program folder that users can't
// write, that file is read and their changes are not kept.
[[nodiscard]] std::string SettingsFilePath(FileSystem& files, const std::string& programFolder,
                                           const std::string& userConfigFolder);

// The port to start with. 1 where none is stored; a fraction is rounded to the nearest, half to even.
[[nodiscard]] int LoadPortSetting(FileSystem& files, const std::string& settingsFile);

// Stores what the next start wants to know. False may be ignored.
bool StoreSettings(FileSystem& files, const std::string& settingsFile, int port, const std::string& lastFileName);

// The devices pinned to COM1, COM2, ... in that order; empty where none is.
[[nodiscard]] std::array<std::string, HighestPort> PortDevices(FileSystem& files, const std::string& settingsFile);

} // namespace mr4500x
