#include "arguments.h"

#include "embedded_info.h"
#include "paths.h"
#include "text.h"
#include "utf8.h"

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <utility>

namespace mr4500x {
namespace {

// The number of letters to be inserted, removed or changed.
std::size_t EditsBetween(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1); // for the letters of `from` so far, and as many of `to`
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char letter : from) {
    std::size_t before = row[0]++;
    for (std::size_t i = 1; i < row.size(); ++i) {
      const std::size_t changed = before + (letter == to[i - 1] ? 0 : 1);
      before = std::exchange(row[i], std::min({changed, row[i] + 1, row[i - 1] + 1}));
    }
  }
  return row.back();
}

} // namespace

bool HasDataFileEnding(const std::string& path) {
  const std::string ending = Lower(TextOf(PathOf(path).extension()));
  return ending == ".k4x" || ending == ".k4y";
}

std::string NearestOf(std::string_view word, const std::vector<std::string>& names) {
  constexpr std::size_t MostEdits = 2;
  std::string nearest;
  std::size_t least = MostEdits + 1;
  for (const std::string& name : names)
    if (const std::size_t edits = EditsBetween(word, name); edits < least) {
      least = edits;
      nearest = name;
    }
  return nearest;
}

std::string InfoToPrint(std::u16string_view text) {
  std::string shown = InfoToKeep(text); // with a line feed after the last line
  if (!shown.empty()) shown.pop_back();
  std::string printed;
  for (std::string_view rest = shown; !rest.empty();) {
    const std::string_view before = rest;
    const char32_t c = TakeCodePoint(rest);
    const bool isControl = IsControl(c) && c != '\n' && c != '\t';
    printed += isControl ? "." : before.substr(0, before.size() - rest.size()); // no character may control the terminal
  }
  return printed;
}

} // namespace mr4500x
