#pragma once

#include <QString>

#include <string_view>

namespace mr4500x {

// Converts the UTF-8 texts of the fleet.
[[nodiscard]] inline QString Shown(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace mr4500x
