// What a command's arguments say: a port, a text for the embedded information.
#pragma once

#include "qt_serial_port.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mr4500x {

class FileSystem;

struct PortArgument {
  int number = 0;     // 1 to 16; 0 for a path
  std::string device; // the path; empty for a number
};

// "3" and "COM3" are port 3. nullopt for a number outside 1 to 16 and for an empty text.
[[nodiscard]] std::optional<PortArgument> ParsePortArgument(const std::string& text);

// The port's name in messages: "COM" and the number, or the path.
[[nodiscard]] std::string NameOf(const PortArgument& port);

// Looks up the device of a number, using the devices pinned in the settings file.
[[nodiscard]] std::unique_ptr<QtSerialPort> PortFor(const PortArgument& port, FileSystem& files,
                                                    const std::string& settingsFile);

// Whether it is a number, or the path of a device that is there.
[[nodiscard]] bool IsThere(const PortArgument& port);

// Whether a file of that name is a data file: by its ending, in capitals or not.
[[nodiscard]] bool HasDataFileEnding(const std::string& path);

// The name that may have been meant: two letters at most are missing, wrong or too many. "" if there is none.
[[nodiscard]] std::string NearestOf(std::string_view word, const std::vector<std::string>& names);

// To print: what a text box shows, with plain line feeds. Other control characters except tabs become ".".
[[nodiscard]] std::string InfoToPrint(std::u16string_view text);

} // namespace mr4500x
