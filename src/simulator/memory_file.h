// The file that keeps a simulated radio's memory between runs: its 1,024 bytes as they are.
#pragma once

#include "radio_memory.h"

#include <optional>
#include <string>

namespace mr4500x {

// Fills the memory from the file, or makes the file from the memory when there is none. On failure the reason.
[[nodiscard]] std::optional<std::string> LoadOrCreate(const std::string& path, RadioMemory& memory);

// Replaces the file at once, so that it is never half written. On failure the reason.
[[nodiscard]] std::optional<std::string> Store(const std::string& path, const RadioMemory& memory);

} // namespace mr4500x
