// The desktop's dialog for choosing a font.
#pragma once

#include <optional>
#include <string>

namespace mr4500x {

struct FontDescription {
  std::string name = "Arial";
  int size = 8; // points
  bool bold = false, italic = false;
  bool operator==(const FontDescription&) const = default;
};

class FontDialog {
public:
  virtual ~FontDialog() = default;
  // The font with the name, size, bold and italic that the user chose; nothing when the user cancelled.
  [[nodiscard]] virtual std::optional<FontDescription> AskFont(const FontDescription& preset) = 0;
};

} // namespace mr4500x
