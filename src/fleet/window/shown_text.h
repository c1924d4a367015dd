#pragma once

#include <QString>

#include <string_view>

namespace mr4500x {

// Converts the UTF-8 texts of the fleet.
[[nodiscard]] inline QString Shown(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Lets long words break, which would make a window wider than the screen.
[[nodiscard]] inline QString Breakable(QString text) {
  constexpr int MostCharacters = 40;
  constexpr QChar zeroWidthSpace(0x200B);
  for (qsizetype at = 0, length = 0; at < text.size(); ++at) {
    length = text[at].isSpace() ? 0 : length + 1;
    if (length < MostCharacters || text[at].isHighSurrogate()) continue;
    text.insert(++at, zeroWidthSpace);
    length = 0;
  }
  return text;
}

} // namespace mr4500x
