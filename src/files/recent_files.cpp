#include "recent_files.h"

#include <cstdint>
#include <vector>

#include "profile.h"

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

// The next code point. A byte that starts none becomes a value above all code points.
std::uint32_t TakeCodePoint(std::string_view& text) {
  constexpr std::uint32_t LoneByte = 0x110000;
  const auto first = static_cast<std::uint8_t>(text.front());
  const std::size_t length = first < 0x80 ? 1 : first < 0xC0 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  std::uint32_t point = length == 1 ? first : first & (0x7FU >> length);
  bool isSound = length > 0 && length <= text.size();
  for (std::size_t i = 1; isSound && i < length; ++i) {
    const auto byte = static_cast<std::uint8_t>(text[i]);
    isSound = (byte & 0xC0) == 0x80;
    point = point << 6 | (byte & 0x3FU);
  }
  text.remove_prefix(isSound ? length : 1);
  return isSound ? point : LoneByte + first;
}

std::uint32_t LowerCase(std::uint32_t point) {
  struct Range {
    std::uint32_t first, last, step, distance; // every step-th code point is upper case
  };
  // clang-format off
  constexpr std::array<Range, 10> Capitals = {{
      {'A',    'Z',    1, 32}, // ASCII
      {0x00C0, 0x00D6, 1, 32}, {0x00D8, 0x00DE, 1, 32},                          // Latin-1
      {0x0100, 0x0136, 2, 1},  {0x0139, 0x0147, 2, 1},  {0x014A, 0x0176, 2, 1},  // Latin Extended-A
      {0x0179, 0x017D, 2, 1},
      {0x0391, 0x03A9, 1, 32},                                                   // Greek
      {0x0400, 0x040F, 1, 80}, {0x0410, 0x042F, 1, 32},                          // Cyrillic
  }};
  // clang-format on
  for (const Range& range : Capitals)
    if (point >= range.first && point <= range.last && (point - range.first) % range.step == 0)
      return point + range.distance;
  return point;
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
