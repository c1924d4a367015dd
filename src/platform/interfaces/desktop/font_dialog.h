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
  // nullopt when cancelled.
  [[nodiscard]] virtual std::optional<FontDescription> AskFont(const FontDescription& preset) = 0;
};

} // namespace mr4500x
