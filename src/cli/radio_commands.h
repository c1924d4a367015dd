// The commands that use a serial port.
#pragma once

#include "diff_command.h"
#include "file_commands.h"
#include "terminal.h"

#include <functional>
#include <string>

namespace mr4500x {

struct RadioCommand {
  SerialLine& line;
  FileSystem& files;
  Terminal& terminal;
  std::function<LocalTime()> now;
  Speed speed = Speed::Prescribed; // of whole reads and writes
};

// False, with a message, unless the whole radio has been read, with the 5-tone standard from ResetTimeBlock.
[[nodiscard]] bool ReadForCommand(const RadioCommand& command, RadioImage& image);

// Stores the configuration as received and prints who the radio is. A path with the names of FilledIn replaces no file
// unless that is wanted.
[[nodiscard]] ExitStatus RunRead(const RadioCommand& command, const std::string& path, bool mayReplace);

// Prints who the radio is.
[[nodiscard]] ExitStatus RunIdentify(const RadioCommand& command, ShowAs form);

struct WriteOptions {
  BandAnswer band = BandAnswer::Ask;
  std::string backupFolder; // where the radio's configuration and text are kept before; empty for none
  bool isVerified = false;  // read back and compared
  bool isDryRun = false;    // only read and compared
};

// Sends the content of the file with a new write stamp. Without the backup nothing is written.
[[nodiscard]] ExitStatus RunWrite(const RadioCommand& command, const std::string& path, const WriteOptions& options);

// Compares what a write of the file would send, but for the stamp, with what the radio holds, and prints what differs.
[[nodiscard]] ExitStatus RunVerify(const RadioCommand& command, const std::string& path, DiffForm form);

// Prints the text and the last programming time.
[[nodiscard]] ExitStatus RunInfoRead(const RadioCommand& command, ShowAs form);

// Writes the text, and reads it back if that is wanted.
[[nodiscard]] ExitStatus RunInfoWrite(const RadioCommand& command, const EmbeddedInfo& info, bool isVerified);

// Lists COM1 to COM16 with their devices and whether they open.
[[nodiscard]] ExitStatus RunPorts(SerialPort& port, const std::function<std::string(int)>& deviceOf, ShowAs form,
                                  Terminal& terminal);

} // namespace mr4500x
