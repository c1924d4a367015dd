#pragma once

#include "font_dialog.h"

namespace mr4500x {

class QtFontDialog final : public FontDialog {
public:
  [[nodiscard]] std::optional<FontDescription> AskFont(const FontDescription& preset) override;
};

} // namespace mr4500x
