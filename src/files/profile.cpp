#include "profile.h"

#include <cstdint>
#include <optional>
#include <vector>

#include "file_access.h"
#include "ini_text.h"

namespace mr4500x {
namespace {

ReadOutcome ReadText(FileSystem& files, const std::string& file, std::string& text) {
  std::vector<std::uint8_t> bytes;
  const ReadOutcome outcome = ReadFile(files, file, ProfileFileLimit, bytes);
  // At the limit the text may be incomplete, and must not be written back.
  if (bytes.size() == ProfileFileLimit) return ReadOutcome::Failed;
  if (outcome == ReadOutcome::Read) text.assign(bytes.begin(), bytes.end());
  return outcome;
}

std::string_view CutBetweenCharacters(std::string_view text) {
  if (text.size() <= ProfileStringBytes) return text;
  std::size_t length = ProfileStringBytes;
  while (length > 0 && (static_cast<std::uint8_t>(text[length]) & 0xC0) == 0x80) // in the middle of a character
    --length;
  return text.substr(0, length);
}

} // namespace

std::string ProfileText(FileSystem& files, const std::string& file) {
  std::string text;
  return ReadText(files, file, text) == ReadOutcome::Read ? text : std::string();
}

std::string ProfileString(std::string_view profileText, std::string_view section, std::string_view key,
                          std::string_view defaultText) {
  return std::string(CutBetweenCharacters(FindIniValue(profileText, section, key).value_or(defaultText)));
}

std::string ReadProfileString(FileSystem& files, const std::string& file, std::string_view section,
                              std::string_view key, std::string_view defaultText) {
  return ProfileString(ProfileText(files, file), section, key, defaultText);
}

bool WriteProfileStrings(FileSystem& files, const std::string& file, std::span<const ProfileValue> values) {
  std::string text;
  const ReadOutcome outcome = ReadText(files, file, text);
  if (outcome == ReadOutcome::Failed) return false;
  const std::string before = text;
  for (const ProfileValue& value : values)
    if (!SetIniValue(text, value.section, value.key, value.value)) return false;
  if (text == before) return true;
  if (outcome == ReadOutcome::Missing && !MakeFolderOf(files, file)) return false;
  return ReplaceFile(files, file, std::vector<std::uint8_t>(text.begin(), text.end()), Surplus::Drop);
}

} // namespace mr4500x
