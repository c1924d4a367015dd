// The configuration as readable tables with the editor's labels.
#pragma once

#include "configuration.h"

#include <string>

namespace mr4500x {

[[nodiscard]] std::string ConfigurationTable(const Configuration& values);

} // namespace mr4500x
