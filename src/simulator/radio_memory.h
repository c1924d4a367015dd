// The memory of a simulated radio, and the file that keeps it between runs.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::size_t RadioMemoryBytes = 1024;
using RadioMemory = std::array<std::uint8_t, RadioMemoryBytes>;

// A radio as a dealer has set it up: channels, settings, identity number, firmware version and embedded text.
[[nodiscard]] RadioMemory FactoryMemory();

// Of the number as much as there is room for.
void SetIdentityNumber(RadioMemory& memory, std::string_view number);

// FactoryMemory, in a new file, if there is none. Throws if the file is no memory of a radio or can't be written.
[[nodiscard]] RadioMemory LoadOrCreate(const std::string& path);

// Replaces the file in one step. Throws if it can't be written.
void Store(const std::string& path, const RadioMemory& memory);

} // namespace mr4500x
