// The configuration memory of the simulated radio.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace mr4500x {

inline constexpr std::size_t RadioMemoryBytes = 1024;
using RadioMemory = std::array<std::uint8_t, RadioMemoryBytes>;

// A radio as it left the factory and was set up by its dealer: sixteen valid channels, valid settings, an identity
// number, a firmware version, an embedded text.
[[nodiscard]] RadioMemory FactoryMemory();

} // namespace mr4500x
