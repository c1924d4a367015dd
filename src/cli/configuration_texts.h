// The configuration as readable text. configuration_json.h has the form for scripts.
#pragma once

#include "configuration.h"

namespace mr4500x {

// Readable tables with the editor's labels.
[[nodiscard]] std::string ConfigurationTable(const Configuration& configuration);

} // namespace mr4500x
