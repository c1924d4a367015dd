// The path of the settings file, and its values except the recent files.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "file_system.h"

namespace mr4500x {

inline constexpr int LowestPort = 1;
inline constexpr int HighestPort = 16;

// Whether the program may keep files in its own folder. It never may in the folder of an installation (under any
// prefix) or in another folder of the package manager, not even as root.
[[nodiscard]] bool MayKeepFilesIn(FileSystem& files, const std::string& programFolder);

// The file in the program folder if it exists or can be created and is not a link to another user's file, otherwise the
// file in the user's configuration folder. So an installation can have fixed settings: a file that users can't write is
// read, and changes are not saved.
[[nodiscard]] std::string SettingsFilePath(FileSystem& files, const std::string& programFolder,
                                           const std::string& userConfigFolder);

// The stored port, clamped to 1 to 16; 1 if there is none. Fractions round half to even.
[[nodiscard]] int LoadPortSetting(FileSystem& files, const std::string& settingsFile);

// The file to which the bytes of transfers are logged. Empty if there is none, or if the path is not a file.
[[nodiscard]] std::string TraceFile(FileSystem& files, const std::string& settingsFile);

// False may be ignored.
bool StoreSettings(FileSystem& files, const std::string& settingsFile, int port, const std::string& lastFileName);

// The user's additions to a write. By default there are none, and a write is only the prescribed exchange.
struct WriteHabits {
  bool verifies = false; // reads back what has been written
  bool backsUp = false;  // saves the radio's configuration before
};
[[nodiscard]] WriteHabits LoadWriteHabits(FileSystem& files, const std::string& settingsFile);
bool StoreWriteHabits(FileSystem& files, const std::string& settingsFile, WriteHabits habits);

// The devices that are assigned to COM1, COM2 …, or empty strings.
[[nodiscard]] std::array<std::string, HighestPort> PortDevices(FileSystem& files, const std::string& settingsFile);

} // namespace mr4500x
