// The configuration as a JSON document. Scripts rely on the keys and their order.
#pragma once

#include "configuration.h"

#include <string>

namespace mr4500x {

[[nodiscard]] std::string ConfigurationJson(const Configuration& values);

} // namespace mr4500x
