// A parsed command line, and the services of its command.
#pragma once

#include "diff_command.h"
#include "file_commands.h"

#include <optional>
#include <string>
#include <vector>

namespace mr4500x {

struct Call {
  FileSystem& files;
  Terminal& terminal;
  std::string file{};  // FILE or A
  std::string other{}; // the second file that is read or written
  std::string output{}, port{}, trace{}, backup{};
  std::optional<std::string> text{};
  std::vector<std::string> words{};
  bool json = false, identifiers = false, patch = false;
  bool all = false, isDryRun = false, isQuick = false, isVerified = false, replace = false, skipBad = false,
       acceptsBand = false;

  [[nodiscard]] DiffForm Differences() const {
    using enum DiffForm;
    return json ? Json : patch ? Patch : identifiers ? Identifiers : Labels;
  }
  [[nodiscard]] FileChange Change() const { return {file, output.empty() ? file : output, other, isDryRun}; }
};

} // namespace mr4500x
