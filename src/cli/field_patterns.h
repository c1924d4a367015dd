// Several settings named at once: a pattern is an identifier with "*" or a range such as 5-8 in the place of a number,
// or a group.
#pragma once

#include "fields.h"

#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// In the order of the table: one setting for an identifier, all that a pattern covers. With `mayBeGroup`, also all
// settings of "global" or "channels.3". None if the pattern names anything that does not exist.
[[nodiscard]] std::vector<FieldAt> FieldsNamed(std::string_view pattern, bool mayBeGroup);

// Every setting.
[[nodiscard]] std::vector<FieldAt> AllFields();

// What to say about a name without a setting: the one that may have been meant, or where to find them.
[[nodiscard]] std::string NoSuchSetting(std::string_view name);

} // namespace mr4500x
