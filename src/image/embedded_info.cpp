#include "embedded_info.h"

#include "function_settings.h"

namespace mr4500x {

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
