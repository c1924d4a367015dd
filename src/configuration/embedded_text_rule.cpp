#include "embedded_text_rule.h"

#include "embedded_info.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::u16string_view LineEnd = u"\r\n";

bool IsHighSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}

bool IsLowSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

// Between the halves of a surrogate pair or of a line end.
bool IsInsideCharacter(std::u16string_view text, std::size_t position) {
  if (position == 0 || position >= text.size()) return false;
  const char16_t before = text[position - 1], after = text[position];
  return (IsHighSurrogate(before) && IsLowSurrogate(after)) || (before == u'\r' && after == u'\n');
}

bool IsLineEnd(char16_t unit) {
  return unit == u'\r' || unit == u'\n' || unit == u'\u2028' || unit == u'\u2029';
}

} // namespace

std::u16string TextToStore(std::u16string_view shown) {
  std::u16string stored;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (shown.substr(i, LineEnd.size()) == LineEnd) ++i;
    if (IsLineEnd(shown[i]))
      stored += LineEnd;
    else if (shown[i] != u'\0')
      stored += shown[i];
  }
  return stored;
}

std::size_t ShownLength(std::u16string_view stored) {
  return stored.size() - static_cast<std::size_t>(std::count(stored.begin(), stored.end(), u'\n'));
}

bool CutToTopSize(EmbeddedEntry& entry) {
  auto& [text, caret] = entry;
  if (text.size() <= MostEmbeddedCharacters) return false;
  if (caret > 0) {
    std::size_t first = caret - 1, last = caret;
    if (IsInsideCharacter(text, first)) --first;
    if (IsInsideCharacter(text, last)) ++last;
    text.erase(first, last - first);
    caret = first;
  }
  if (text.size() > MostEmbeddedCharacters) {
    std::size_t end = MostEmbeddedCharacters;
    if (IsInsideCharacter(text, end)) --end;
    text.resize(end);
    caret = std::min(caret, end);
  }
  return true;
}

} // namespace mr4500x
