#include "profile.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "conventions.h"
#include "file_access.h"
#include "text.h"
#include "utf8.h"

namespace mr4500x {
namespace {

// Includes 0x00, which a value can't contain either.
constexpr std::string_view LineBreaks("\r\n\0", 3);

bool SameName(std::string_view a, std::string_view b) {
  a = Trimmed(a);
  b = Trimmed(b);
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Lower(x) == Lower(y); });
}

struct Line {
  std::size_t begin, end; // without the line break
  std::size_t next;
};

Line LineAt(std::string_view text, std::size_t begin) {
  const auto end = std::min(text.find('\n', begin), text.size());
  return {begin, end > begin && text[end - 1] == '\r' ? end - 1 : end, std::min(end + 1, text.size())};
}

std::optional<std::string_view> SectionName(std::string_view content) {
  const auto close = content.find(']');
  if (!content.starts_with('[') || close == std::string_view::npos) return std::nullopt;
  return content.substr(1, close - 1);
}

// The position of a key, or the position at which to add it.
struct KeyPosition {
  std::optional<std::size_t> sectionEnd; // after the last line of the section (the first so named) that is not blank
  bool hasKey = false;
  std::size_t valueBegin = 0, valueEnd = 0; // without the blanks after '='
};

KeyPosition FindKey(std::string_view text, std::string_view section, std::string_view key) {
  KeyPosition position;
  bool isInside = false, isInFirst = false;
  Line line{};
  for (std::size_t at = text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0; at < text.size(); at = line.next) {
    line = LineAt(text, at);
    const auto content = Trimmed(text.substr(line.begin, line.end - line.begin));
    if (const auto name = SectionName(content)) {
      isInside = SameName(*name, section);
      isInFirst = isInside && !position.sectionEnd;
    }
    if (isInFirst && !content.empty()) position.sectionEnd = line.next;
    const auto equals = content.find('=');
    if (!isInside || content.starts_with(';') || equals == std::string_view::npos ||
        !SameName(content.substr(0, equals), key))
      continue;
    const auto value = text.find_first_not_of(Blanks, text.find('=', line.begin) + 1);
    position.hasKey = true;
    position.valueBegin = std::min(value, line.end);
    position.valueEnd = line.end;
    return position;
  }
  return position;
}

bool IsQuoted(std::string_view value) {
  return value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
}

std::string ValueText(std::string_view value) {
  std::string text(value);
  for (char& character : text)
    if (LineBreaks.find(character) != std::string_view::npos) character = ' ';
  return IsQuoted(text) || Trimmed(text).size() != text.size() ? '"' + text + '"' : text;
}

bool AreNames(std::string_view section, std::string_view key) {
  key = Trimmed(key);
  return section.find_first_of(LineBreaks) == std::string_view::npos && section.find(']') == std::string_view::npos &&
         key.find_first_of(LineBreaks) == std::string_view::npos && key.find('=') == std::string_view::npos &&
         !key.empty() && !key.starts_with('[') && !key.starts_with(';');
}

std::string_view LineEndOf(std::string_view text) {
  const Line first = LineAt(text, 0);
  if (first.next == first.end) return LineEnd;
  return first.next - first.end == 2 ? "\r\n" : "\n";
}

ReadOutcome ReadText(FileSystem& files, const std::string& file, std::string& text) {
  if (LeadsToOtherUser(files, file)) return ReadOutcome::Failed;
  std::vector<std::uint8_t> bytes;
  const ReadOutcome outcome = ReadFile(files, file, ProfileFileLimit, bytes);
  // At the limit the text may be incomplete, and must not be written back.
  if (bytes.size() == ProfileFileLimit) return ReadOutcome::Failed;
  if (outcome == ReadOutcome::Read) text.assign(bytes.begin(), bytes.end());
  return outcome;
}

} // namespace

std::optional<std::string_view> FindIniValue(std::string_view text, std::string_view section, std::string_view key) {
  const KeyPosition position = FindKey(text, section, key);
  if (!position.hasKey) return std::nullopt;
  const auto value = Trimmed(text.substr(position.valueBegin, position.valueEnd - position.valueBegin));
  return IsQuoted(value) ? value.substr(1, value.size() - 2) : value;
}

bool SetIniValue(std::string& text, std::string_view section, std::string_view key, std::string_view value) {
  if (!AreNames(section, key)) return false;
  const KeyPosition position = FindKey(text, section, key);
  if (position.hasKey) {
    text.replace(position.valueBegin, position.valueEnd - position.valueBegin, ValueText(value));
    return true;
  }
  const std::string lineEnd(LineEndOf(text));
  std::string added;
  const std::size_t at = position.sectionEnd.value_or(text.size());
  if (at > 0 && text[at - 1] != '\n' && text != ByteOrderMark) added += text[at - 1] == '\r' ? "\n" : lineEnd;
  if (!position.sectionEnd) added.append("[").append(section).append("]").append(lineEnd);
  added.append(key).append("=").append(ValueText(value)).append(lineEnd);
  text.insert(at, added);
  return true;
}

std::string ProfileText(FileSystem& files, const std::string& file) {
  std::string text;
  return ReadText(files, file, text) == ReadOutcome::Read ? text : std::string();
}

bool FitsProfileString(std::string_view value) {
  return std::ranges::count_if(value, BeginsCharacter) <= ProfileStringCharacters;
}

std::string ProfileString(std::string_view profileText, std::string_view section, std::string_view key,
                          std::string_view defaultText) {
  const auto value = FindIniValue(profileText, section, key);
  return std::string(value && FitsProfileString(*value) ? *value : defaultText);
}

bool WriteProfileStrings(FileSystem& files, const std::string& file, std::span<const ProfileValue> values) {
  std::string text;
  const ReadOutcome outcome = ReadText(files, file, text);
  if (outcome == ReadOutcome::Failed) return false;
  const std::string before = text;
  for (const ProfileValue& value : values)
    if (!SetIniValue(text, value.section, value.key, value.value)) return false;
  if (text == before) return true;
  if (!MakeFolderOf(files, file)) return false;
  return ReplaceFile(files, file, std::vector<std::uint8_t>(text.begin(), text.end()), Surplus::Drop);
}

} // namespace mr4500x
