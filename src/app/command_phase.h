// How a command guards one of its phases.
#pragma once

#include <exception>

namespace mr4500x {

// Whether the phase answers true. Running out of memory in it is one more way to fail.
template<typename Phase>
[[nodiscard]] bool Succeeds(Phase phase) {
  try {
    return phase();
  } catch (const std::exception&) {
    return false;
  }
}

} // namespace mr4500x
