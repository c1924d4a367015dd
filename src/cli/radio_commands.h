// The commands that talk to a radio or look for one.
#pragma once

#include "exit_status.h"
#include "file_system.h"
#include "terminal.h"

#include <functional>
#include <string>

namespace mr4500x {

// What every command of this kind works with.
struct RadioCommand {
  SerialLine& line;
  FileSystem& files;
  Terminal& terminal;
};

// Stores the radio's configuration as received, its standard taken from ResetTimeBlock.
[[nodiscard]] ExitStatus RunRead(const RadioCommand& command, const std::string& path);

// Sends what the file holds, under the present write stamp.
[[nodiscard]] ExitStatus RunWrite(const RadioCommand& command, const std::string& path, BandAnswer band,
                                  const std::function<LocalTime()>& now);

// Prints the text and the last programming time.
[[nodiscard]] ExitStatus RunInfoRead(const RadioCommand& command);

// The text as the embedded information, at most 119 units.
[[nodiscard]] ExitStatus RunInfoWrite(const RadioCommand& command, std::u16string_view text);

// COM1 to COM16: the device that each stands for, and whether it opens.
[[nodiscard]] ExitStatus RunPorts(SerialPort& port, const std::function<std::string(int)>& deviceOf,
                                  Terminal& terminal);

} // namespace mr4500x
