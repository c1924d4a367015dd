// The configuration as text.
#pragma once

#include "configuration.h"

namespace mr4500x {

// A JSON document. Scripts rely on the keys and their order.
[[nodiscard]] std::string ConfigurationJson(const Configuration& configuration);

// Readable tables with the editor's labels.
[[nodiscard]] std::string ConfigurationTable(const Configuration& configuration);

} // namespace mr4500x
