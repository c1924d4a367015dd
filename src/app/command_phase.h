#pragma once

#include <exception>

namespace mr4500x {

// Whether the phase of a command returns true. An exception (out of memory) counts as a failure.
template<typename Phase>
[[nodiscard]] bool Succeeds(Phase phase) {
  try {
    return phase();
  } catch (const std::exception&) {
    return false;
  }
}

} // namespace mr4500x
