// Where the data in the editor came from, and the window title for it.
#pragma once

#include "exchange.h"

#include <string>
#include <variant>

namespace mr4500x {

struct FileOrigin {
  std::string path;
  bool operator==(const FileOrigin&) const = default;
};

struct RadioOrigin {
  Transfer transfer;
  bool operator==(const RadioOrigin&) const = default;
};

using NoOrigin = std::monostate; // the data of a new configuration
using Origin = std::variant<NoOrigin, FileOrigin, RadioOrigin>;

[[nodiscard]] std::string TitleOf(const Origin& origin);

} // namespace mr4500x
