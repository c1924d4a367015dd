#pragma once

#include <QString>

#include <string_view>

namespace mr4500x {

// UTF-8, as the fleet has its texts.
[[nodiscard]] inline QString Shown(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace mr4500x
