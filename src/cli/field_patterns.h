// Selects several settings at once. A pattern is an identifier with "*" or a range such as 5-8 instead of a number, or
// a group.
#pragma once

#include "fields.h"

#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

// The setting of an identifier, or all settings of a pattern, in the order of the table. With `mayBeGroup` also all
// settings of "global" or "channels.3". Empty if the pattern names anything that does not exist.
[[nodiscard]] std::vector<FieldAt> FieldsNamed(std::string_view pattern, bool mayBeGroup);

// Every setting.
[[nodiscard]] std::vector<FieldAt> AllFields();

// The message for an unknown name: a suggestion, or where to find the names.
[[nodiscard]] std::string NoSuchSetting(std::string_view name);

} // namespace mr4500x
