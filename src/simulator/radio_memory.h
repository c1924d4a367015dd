#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace mr4500x {

inline constexpr std::size_t RadioMemoryBytes = 1024;
using RadioMemory = std::array<std::uint8_t, RadioMemoryBytes>;

// A radio as a dealer has set it up: channels, settings, identity number, firmware version and embedded text.
[[nodiscard]] RadioMemory FactoryMemory();

} // namespace mr4500x
