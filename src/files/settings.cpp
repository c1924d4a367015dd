#include "settings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "conventions.h"
#include "file_access.h"
#include "profile.h"
#include "text.h"

namespace mr4500x {
namespace {

constexpr std::string_view SettingsFileName = "MR4500X.ini";
constexpr std::string_view PortSection = "Comm Port";
constexpr std::string_view PortKey = "Common Port";
constexpr std::string_view FileSection = "File Name";
constexpr std::string_view FileKey = "Default File";
constexpr std::string_view WriteSection = "Write";
constexpr std::string_view VerifyKey = "Verify after Writing";
constexpr std::string_view BackUpKey = "Back Up before Writing";
constexpr std::string_view DeviceSection = "Port Devices";
constexpr std::string_view DeviceKey = "COM"; // plus the number

// 0 unless the whole text is a finite number.
double NumericValue(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return error == std::errc{} && end == text.data() + text.size() && std::isfinite(value) ? value : 0;
}

// The build's install folder is relative to the prefix, so that any prefix matches; CMake also allows an absolute one.
bool IsOfInstallation(FileSystem& files, const std::string& programFolder) {
  if (!InstallationMark.empty()) return !IsMissing(files, programFolder + Separator + std::string(InstallationMark));
  constexpr std::string_view Folder = MR4500X_PROGRAM_FOLDER;
  return Folder.starts_with('/') ? programFolder == Folder : programFolder.ends_with('/' + std::string(Folder));
}

std::string InFolder(const std::string& folder) {
  return folder + Separator + std::string(SettingsFileName);
}

} // namespace

bool MayKeepFilesIn(FileSystem& files, const std::string& programFolder) {
  const bool isOfSystem = programFolder.starts_with("/usr/") && !programFolder.starts_with("/usr/local/");
  return !isOfSystem && !IsOfInstallation(files, programFolder) && files.CanWrite(programFolder);
}

std::string SettingsFilePath(FileSystem& files, const std::string& programFolder, const std::string& userConfigFolder) {
  const std::string ofProgram = InFolder(programFolder);
  const auto status = files.Status(ofProgram);
  const bool exists = status && status->kind != FileKind::Missing;
  if (LeadsToOtherUser(files, ofProgram)) return InFolder(userConfigFolder);
  return exists || MayKeepFilesIn(files, programFolder) ? ofProgram : InFolder(userConfigFolder);
}

int LoadPortSetting(FileSystem& files, const std::string& settingsFile) {
  const std::string text = ProfileString(ProfileText(files, settingsFile), PortSection, PortKey, "");
  const double port = std::clamp<double>(NumericValue(Trimmed(text)), LowestPort, HighestPort);
  return static_cast<int>(std::nearbyint(port)); // in the default rounding mode: half to even
}

std::string TraceFile(FileSystem& files, const std::string& settingsFile) {
  const std::string file = ProfileString(ProfileText(files, settingsFile), PortSection, "Trace", "");
  return MayReplace(files, file) ? file : ""; // opening a pipe would wait for a reader
}

bool StoreSettings(FileSystem& files, const std::string& settingsFile, int port, const std::string& lastFileName) {
  const std::array<ProfileValue, 2> values = {{
      {std::string(PortSection), std::string(PortKey), std::to_string(port)},
      {std::string(FileSection), std::string(FileKey), FitsProfileString(lastFileName) ? lastFileName : ""},
  }};
  return WriteProfileStrings(files, settingsFile, values);
}

WriteHabits LoadWriteHabits(FileSystem& files, const std::string& settingsFile) {
  const std::string text = ProfileText(files, settingsFile);
  const auto isOn = [&](std::string_view key) { return ProfileString(text, WriteSection, key, "") == "1"; };
  return {isOn(VerifyKey), isOn(BackUpKey)};
}

bool StoreWriteHabits(FileSystem& files, const std::string& settingsFile, WriteHabits habits) {
  const std::array<ProfileValue, 2> values = {{
      {std::string(WriteSection), std::string(VerifyKey), habits.verifies ? "1" : "0"},
      {std::string(WriteSection), std::string(BackUpKey), habits.backsUp ? "1" : "0"},
  }};
  return WriteProfileStrings(files, settingsFile, values);
}

std::array<std::string, HighestPort> PortDevices(FileSystem& files, const std::string& settingsFile) {
  const std::string text = ProfileText(files, settingsFile);
  std::array<std::string, HighestPort> devices;
  for (std::size_t i = 0; i < devices.size(); ++i)
    devices[i] = ProfileString(text, DeviceSection, std::string(DeviceKey) + std::to_string(i + 1), "");
  return devices;
}

} // namespace mr4500x
