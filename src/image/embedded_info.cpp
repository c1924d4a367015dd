#include "embedded_info.h"

#include "function_settings.h"
#include "utf8.h"

#include <algorithm>

namespace mr4500x {
namespace {

constexpr std::u16string_view LineEnd = u"\r\n";
constexpr std::u16string_view LineEnds = u"\r\n\u2028\u2029";

void UseLineFeeds(std::u16string& text) {
  for (std::size_t at = text.find(LineEnd); at != std::u16string::npos; at = text.find(LineEnd, at))
    text.erase(at, 1);
  std::ranges::replace(text, u'\r', u'\n');
}

} // namespace

bool IsInsideCharacter(std::u16string_view text, std::size_t position) {
  if (position == 0 || position >= text.size()) return false;
  const char16_t before = text[position - 1], after = text[position];
  return ((before & 0xFC00) == 0xD800 && (after & 0xFC00) == 0xDC00) || (before == u'\r' && after == u'\n');
}

std::u16string EmbeddedText(const EmbeddedInfo& block) {
  std::u16string text;
  text.reserve(block.length / 2);
  for (std::size_t i = 0; i + 1 < block.length; i += 2)
    text += static_cast<char16_t>(block.bytes[i] + 256 * block.bytes[i + 1]);
  return text;
}

std::u16string_view VisibleText(std::u16string_view text) {
  return text.substr(0, text.find(u'\0'));
}

bool StoreEmbeddedText(EmbeddedInfo& block, std::u16string_view text) {
  if (text.size() > MostEmbeddedCharacters) return false;
  block = {.bytes = {}, .length = 2 * text.size()};
  for (std::size_t i = 0; i < text.size(); ++i) {
    block.bytes[2 * i] = static_cast<std::uint8_t>(text[i] & 0xFF);
    block.bytes[2 * i + 1] = static_cast<std::uint8_t>(text[i] >> 8);
  }
  return true;
}

std::u16string TextToStore(std::u16string_view shown) {
  std::u16string stored;
  for (const char16_t character : shown) {
    if (LineEnds.find(character) != std::u16string_view::npos)
      stored += LineEnd;
    else if (character != u'\0')
      stored += character;
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

std::optional<std::u16string> InfoFromArgument(std::string_view argument) {
  std::optional<std::u16string> text = FromUtf8(argument);
  if (!text) return std::nullopt;
  UseLineFeeds(*text);
  for (std::size_t at = text->find(u'\n'); at != std::u16string::npos; at = text->find(u'\n', at + LineEnd.size()))
    text->replace(at, 1, LineEnd);
  return text;
}

std::string InfoToKeep(std::u16string_view text) {
  std::u16string kept(VisibleText(text));
  UseLineFeeds(kept);
  return kept.empty() ? "" : ToUtf8(kept) + '\n';
}

std::optional<std::u16string> InfoFromKept(std::string_view content) {
  for (const char end : {'\n', '\r'}) // the last line's
    if (content.ends_with(end)) content.remove_suffix(1);
  return InfoFromArgument(content);
}

std::string LastProgrammingTime(const RadioImage& image) {
  struct Piece {
    std::size_t at, bytes;
    const char* after;
  };
  constexpr std::array<Piece, 6> pieces = {
      {{0, 4, "-"}, {4, 2, "-"}, {6, 2, ", "}, {8, 2, ":"}, {10, 2, ":"}, {12, 2, ""}}};
  std::string text;
  for (const Piece& piece : pieces)
    text += CharactersText(std::span(image.WriteStampBlock).subspan(piece.at, piece.bytes)) + piece.after;
  return text;
}

} // namespace mr4500x
