#include "recent_files.h"

#include <cstdint>
#include <vector>

#include "profile.h"
#include "text.h"
#include "utf8.h"

namespace mr4500x {
namespace {

constexpr std::string_view Section = "Recent Files";
constexpr std::string_view Key = "RecentFile"; // plus the slot number
constexpr std::string_view NoFile = "No File";

// Slots count from 1, like their keys; 0 means no slot.
std::string SlotKey(std::size_t slot) {
  return std::string(Key) + std::to_string(slot);
}

ProfileValue SlotValue(std::size_t slot, const std::string& path) {
  return {std::string(Section), SlotKey(slot), path};
}

bool Holds(const RecentFileList& list, std::size_t slot, const std::string& path) {
  const auto& held = list[slot - 1];
  return held && IsSamePath(*held, path);
}

} // namespace

bool IsSamePath(std::string_view a, std::string_view b) {
  a = Trimmed(a, " ");
  b = Trimmed(b, " ");
  while (!a.empty() && !b.empty())
    if (LowerCase(TakeCodePoint(a)) != LowerCase(TakeCodePoint(b))) return false;
  return a.empty() && b.empty();
}

RecentFileList RecentFiles(FileSystem& files, const std::string& settingsFile) {
  const std::string text = ProfileText(files, settingsFile);
  RecentFileList list;
  for (std::size_t slot = 1; slot <= RecentFileCount; ++slot) {
    std::string path = ProfileString(text, Section, SlotKey(slot), NoFile);
    if (!path.empty() && !path.starts_with(NoFile)) list[slot - 1] = std::move(path);
  }
  return list;
}

bool AddRecent(FileSystem& files, const std::string& settingsFile, const std::string& path) {
  if (!FitsProfileString(path)) return false;
  const RecentFileList list = RecentFiles(files, settingsFile);
  std::size_t found = RecentFileCount;
  while (found > 0 && !Holds(list, found, path))
    --found;
  // An empty slot is not moved down: the slot below keeps its path.
  std::vector<ProfileValue> values;
  for (std::size_t slot = (found == 0 ? RecentFileCount : found) - 1; slot >= 1; --slot)
    if (const auto& held = list[slot - 1]) values.push_back(SlotValue(slot + 1, *held));
  values.push_back(SlotValue(1, path));
  return WriteProfileStrings(files, settingsFile, values);
}

bool RemoveRecent(FileSystem& files, const std::string& settingsFile, const std::string& path) {
  const RecentFileList list = RecentFiles(files, settingsFile);
  std::size_t found = 1;
  while (found <= RecentFileCount && !Holds(list, found, path))
    ++found;
  if (found > RecentFileCount) return true;
  std::vector<ProfileValue> values;
  std::size_t slot = found + 1;
  for (; slot <= RecentFileCount && list[slot - 1]; ++slot)
    values.push_back(SlotValue(slot - 1, *list[slot - 1]));
  for (std::size_t emptied = slot - 1; emptied <= RecentFileCount; ++emptied)
    values.push_back(SlotValue(emptied, ""));
  return WriteProfileStrings(files, settingsFile, values);
}

std::string RecentCaption(std::size_t slot, std::string_view path) {
  return ' ' + std::to_string(slot) + ' ' + std::string(path);
}

} // namespace mr4500x
