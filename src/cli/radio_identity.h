// The identity of a radio, as text and JSON.
#pragma once

#include "radio_image.h"

#include <string>

namespace mr4500x {

// Identity number, firmware version, frequency band and last programming time, one per line.
[[nodiscard]] std::string IdentityTable(const RadioImage& image);
[[nodiscard]] std::string IdentityJson(const RadioImage& image);

} // namespace mr4500x
