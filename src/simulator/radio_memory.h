// The memory of a simulated radio, and the file that keeps it between runs.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::size_t RadioMemoryBytes = 1024;
inline constexpr std::size_t IdentityCharacters = 16;
using RadioMemory = std::array<std::uint8_t, RadioMemoryBytes>;

// The memory of a radio that a dealer has set up: channels, settings, identity number, firmware version and embedded
// text.
[[nodiscard]] RadioMemory FactoryMemory();

// Stores as much of the number as fits.
void SetIdentityNumber(RadioMemory& memory, std::string_view number);

// Loads the file. If it is missing, creates it with FactoryMemory. Throws if the file is not a radio's memory or can't
// be written.
[[nodiscard]] RadioMemory LoadOrCreate(const std::string& path);

// Replaces the file in one step. Throws if it can't be written.
void Store(const std::string& path, const RadioMemory& memory);

} // namespace mr4500x
