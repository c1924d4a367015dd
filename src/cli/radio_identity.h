// Who a radio is, as a report and in the names of its files.
#pragma once

#include "radio_image.h"

#include <string>

namespace mr4500x {

// Identity number, firmware version, frequency band and last programming time, one a line.
[[nodiscard]] std::string IdentityTable(const RadioImage& image);
[[nodiscard]] std::string IdentityJson(const RadioImage& image);

// A path with its {id}, {date} and {time} filled in: "20261104" and "090507". Of the identity number only ASCII
// letters, digits and "-" stay, all else becomes "_", so that no radio chooses a folder.
[[nodiscard]] std::string FilledIn(std::string path, const RadioImage& image, const LocalTime& now);

} // namespace mr4500x
