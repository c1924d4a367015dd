// The commands that use a serial port.
#pragma once

#include "file_system.h"
#include "terminal.h"

#include <functional>
#include <string>

namespace mr4500x {

struct RadioCommand {
  SerialLine& line;
  FileSystem& files;
  Terminal& terminal;
};

// Stores the configuration as received, with the 5-tone standard from ResetTimeBlock.
[[nodiscard]] ExitStatus RunRead(const RadioCommand& command, const std::string& path);

// Sends the content of the file with a new write stamp.
[[nodiscard]] ExitStatus RunWrite(const RadioCommand& command, const std::string& path, BandAnswer band,
                                  const std::function<LocalTime()>& now);

// Prints the text and the last programming time.
[[nodiscard]] ExitStatus RunInfoRead(const RadioCommand& command);

// Writes a text of at most 119 units.
[[nodiscard]] ExitStatus RunInfoWrite(const RadioCommand& command, std::u16string_view text);

// Lists COM1 to COM16 with their devices and whether they open.
[[nodiscard]] ExitStatus RunPorts(SerialPort& port, const std::function<std::string(int)>& deviceOf,
                                  Terminal& terminal);

} // namespace mr4500x
