// The configuration as readable tables, under the labels of the editor.
#pragma once

#include "editor_values.h"

#include <string>

namespace mr4500x {

[[nodiscard]] std::string ConfigurationTable(const EditorValues& values);

} // namespace mr4500x
