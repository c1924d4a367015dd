// Any settings file, read and rewritten: what is stored comes back, every other line stays as it is.
#include "fuzz_input.h"
#include "ini_text.h"
#include "memory_file_system.h"
#include "profile.h"
#include "recent_files.h"
#include "settings.h"

namespace mr4500x {

namespace {

constexpr char Path[] = "/settings.ini";

// A value as it can stand in a line.
std::string InOneLine(std::string value) {
  std::ranges::replace_if(
      value, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
  return value;
}

// A path as the list holds it: one line, cut between two characters.
std::optional<std::string> AsHeld(const std::string& path) {
  std::string held = InOneLine(path);
  if (held.size() > ProfileStringBytes) {
    std::size_t length = ProfileStringBytes;
    while (length > 0 && (static_cast<unsigned char>(held[length]) & 0xC0) == 0x80)
      --length;
    held.resize(length);
  }
  return held.empty() || held.starts_with("No File") ? std::nullopt : std::optional(held);
}

// Only within one line, or by whole new lines, may a text change.
void RequireOtherLinesKept(const std::string& before, const std::string& after) {
  const std::size_t most = std::min(before.size(), after.size());
  std::size_t head = 0, tail = 0;
  while (head < most && before[head] == after[head])
    ++head;
  while (tail < most - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
    ++tail;
  Require(before.substr(head, before.size() - tail - head).find('\n') == std::string::npos, "no line is lost");
}

void SetAndFind(std::string text, FuzzInput& input) {
  const std::string section = input.Text(), key = input.Text(), value = input.Text();
  const std::string before = text;
  const auto other = FindIniValue(before, "Comm Port", "Common Port");
  const std::optional<std::string> otherBefore = other ? std::optional(std::string(*other)) : std::nullopt;
  if (!SetIniValue(text, section, key, value)) {
    Require(text == before, "a refused value changes nothing");
    return;
  }
  Require(FindIniValue(text, section, key) == InOneLine(value), "a value comes back as it was set");
  RequireOtherLinesKept(before, text);
  const std::string once = text;
  Require(SetIniValue(text, section, key, value) && text == once, "setting a value again changes nothing");
  const auto isCommonPort = [&](std::string_view a, std::string_view b) {
    std::string lower(TrimBlanks(a));
    std::ranges::transform(lower, lower.begin(), LowerAscii);
    return lower == b;
  };
  if (isCommonPort(section, "comm port") && isCommonPort(key, "common port")) return;
  const auto otherAfter = FindIniValue(text, "Comm Port", "Common Port");
  Require(otherBefore == (otherAfter ? std::optional(std::string(*otherAfter)) : std::nullopt),
          "another key keeps its value");
}

// The rules of the list, on the list alone.
RecentFileList Added(RecentFileList list, const std::string& path) {
  std::size_t found = 4;
  while (found > 0 && !(list[found - 1] && IsSamePath(*list[found - 1], path)))
    --found;
  for (std::size_t slot = (found == 0 ? 4 : found); slot > 1; --slot)
    if (list[slot - 2]) list[slot - 1] = AsHeld(*list[slot - 2]);
  list[0] = AsHeld(path);
  return list;
}

RecentFileList Removed(RecentFileList list, const std::string& path) {
  const auto found = std::ranges::find_if(list, [&](const auto& held) { return held && IsSamePath(*held, path); });
  if (found == list.end()) return list;
  const auto end = std::find(found, list.end(), std::nullopt);
  const auto moved = std::transform(found + 1, end, found, [](const auto& held) { return AsHeld(*held); });
  std::fill(moved, list.end(), std::nullopt);
  return list;
}

void ChangeSettings(MemoryFileSystem& files, FuzzInput& input) {
  const std::string before = files.files.at(Path);
  const RecentFileList list = RecentFiles(files, Path);
  const auto devices = PortDevices(files, Path);
  switch (input.Below(3)) {
  case 0: {
    const std::string path = input.Text();
    const int port = 1 + input.Below(HighestPort);
    Require(StoreSettings(files, Path, port, path) && LoadPortSetting(files, Path) == port, "the port comes back");
    Require(RecentFiles(files, Path) == list, "the recent files stay");
    break;
  }
  case 1: {
    const std::string path = input.Text();
    Require(AddRecent(files, Path, path), "a path can be added");
    Require(RecentFiles(files, Path) == Added(list, path), "a path becomes the first");
    break;
  }
  default: {
    const auto& held = list[static_cast<std::size_t>(input.Below(4))];
    const std::string path = held ? *held : input.Text();
    Require(RemoveRecent(files, Path, path), "a path can be removed");
    Require(RecentFiles(files, Path) == Removed(list, path), "a path is gone");
    break;
  }
  }
  Require(PortDevices(files, Path) == devices, "the pinned devices stay");
  Require(files.files.size() == 1 && !files.HasOpenFiles(), "no temporary stays");
}

void UseSettings(FuzzInput input) {
  const int changes = input.Below(8);
  const std::string steps = input.Text();
  MemoryFileSystem files;
  files.files[Path] = input.Rest();
  const std::span stepBytes(reinterpret_cast<const std::uint8_t*>(steps.data()), steps.size());
  FuzzInput step(stepBytes);
  SetAndFind(files.files.at(Path), step);
  const int port = LoadPortSetting(files, Path);
  Require(port >= LowestPort && port <= HighestPort, "the port is one of the 16");
  for (int i = 0; i < changes; ++i)
    ChangeSettings(files, step);
}

} // namespace

} // namespace mr4500x

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  mr4500x::UseSettings(mr4500x::FuzzInput({data, size}));
  return 0;
}
