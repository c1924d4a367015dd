// The file that keeps a simulated radio's memory between runs: 1024 bytes.
#pragma once

#include "radio_memory.h"

#include <optional>
#include <string>

namespace mr4500x {

// Loads the memory, or creates the file if it is missing. Returns the reason of a failure.
[[nodiscard]] std::optional<std::string> LoadOrCreate(const std::string& path, RadioMemory& memory);

// Replaces the file in one step. Returns the reason of a failure.
[[nodiscard]] std::optional<std::string> Store(const std::string& path, const RadioMemory& memory);

} // namespace mr4500x
