// Where the settings file is, and its values except the recent files.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "file_system.h"

namespace mr4500x {

inline constexpr int LowestPort = 1;
inline constexpr int HighestPort = 16;

// Whether the program may keep files in its own folder: never in that of an installation, under whatever prefix, nor in
// any other folder of the package manager, not even as root.
[[nodiscard]] bool MayKeepFilesIn(FileSystem& files, const std::string& programFolder);

// The file in the program folder if it exists or can be created, and is not a link to another user's file, else the one
// in the user's configuration folder. An installed program can thus ship fixed settings: a file that users can't write
// is read, and changes are not kept.
[[nodiscard]] std::string SettingsFilePath(FileSystem& files, const std::string& programFolder,
                                           const std::string& userConfigFolder);

// The stored port, clamped to 1 to 16; 1 if there is none. Fractions round half to even.
[[nodiscard]] int LoadPortSetting(FileSystem& files, const std::string& settingsFile);

// The file in which the bytes of transfers are to be traced; empty for none, and for what is not a file.
[[nodiscard]] std::string TraceFile(FileSystem& files, const std::string& settingsFile);

// False may be ignored.
bool StoreSettings(FileSystem& files, const std::string& settingsFile, int port, const std::string& lastFileName);

// What the user has added to a write. Nothing at first: then a write is the prescribed exchange and no more.
struct WriteHabits {
  bool verifies = false; // reads back what has been written
  bool backsUp = false;  // keeps what the radio holds before
};
[[nodiscard]] WriteHabits LoadWriteHabits(FileSystem& files, const std::string& settingsFile);
bool StoreWriteHabits(FileSystem& files, const std::string& settingsFile, WriteHabits habits);

// The devices pinned to COM1, COM2 …; an empty string for none.
[[nodiscard]] std::array<std::string, HighestPort> PortDevices(FileSystem& files, const std::string& settingsFile);

} // namespace mr4500x
