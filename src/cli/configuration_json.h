// The configuration as one JSON document for scripts. Its keys and their order are a contract.
#pragma once

#include "editor_values.h"

#include <string>

namespace mr4500x {

[[nodiscard]] std::string ConfigurationJson(const EditorValues& values);

} // namespace mr4500x
