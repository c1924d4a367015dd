#pragma once

#include <filesystem>
#include <string>

#include "machine_files.h"

namespace mr4500x {

// A new, empty folder in another one.
inline std::string NewFolder(const std::string& parent) {
  for (;;)
    if (const auto path =
            std::filesystem::path(parent) / ("mr4500x-" + std::to_string(MachineFiles().UnpredictableNumber()));
        std::filesystem::create_directory(path))
      return path.string();
}

} // namespace mr4500x
