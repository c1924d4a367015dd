// The desktop's clipboard.
#pragma once

#include "clipboard.h"

namespace mr4500x {

class QtClipboard final : public Clipboard {
public:
  [[nodiscard]] std::string Text() override;
  void SetText(const std::string& text) override;
};

} // namespace mr4500x
