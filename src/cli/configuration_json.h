// The configuration as one JSON document for scripts. Its keys and their order are a contract.
#pragma once

#include "configuration.h"

#include <string>

namespace mr4500x {

[[nodiscard]] std::string ConfigurationJson(const Configuration& values);

} // namespace mr4500x
