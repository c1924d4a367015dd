// The desktop's clipboard, as far as the editor uses it.
#pragma once

#include <string>

namespace mr4500x {

class Clipboard {
public:
  virtual ~Clipboard() = default;
  [[nodiscard]] virtual std::string Text() = 0; // UTF-8; empty where the clipboard holds no text
  virtual void SetText(const std::string& text) = 0;
};

} // namespace mr4500x
