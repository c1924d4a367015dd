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
  Speed speed = Speed::Prescribed; // speed of whole reads and writes
  std::string trace{};             // the file with the bytes on the line
};

// False, with a message, unless the whole radio has been read, with the 5-tone standard from ResetTimeBlock.
[[nodiscard]] bool ReadForCommand(const RadioCommand& command, RadioImage& image,
                                  decltype(ReadRadio)& read = ReadWholeRadio);

// Stores the configuration as received and prints the radio's identity. A path with the placeholders of FilledIn
// replaces no file unless requested.
[[nodiscard]] ExitStatus RunRead(const RadioCommand& command, const std::string& path, bool mayReplace);

// Prints the radio's identity.
[[nodiscard]] ExitStatus RunIdentify(const RadioCommand& command, bool asJson);

struct WriteOptions {
  BandAnswer band = BandAnswer::Ask;
  std::string backupFolder; // the folder for the radio's previous configuration and text; empty for none
  bool isVerified = false;  // read back and compared
  bool isDryRun = false;    // only read and compared
};

// Sends the content of the file with a new write stamp. If the backup fails, nothing is written.
[[nodiscard]] ExitStatus RunWrite(const RadioCommand& command, const std::string& path, const WriteOptions& options);

// Compares the radio with what a write of the file would send, except the stamp, and prints the differences.
[[nodiscard]] ExitStatus RunVerify(const RadioCommand& command, const std::string& path, DiffForm form);

// Prints the text and the last programming time.
[[nodiscard]] ExitStatus RunInfoRead(const RadioCommand& command, bool asJson);

// Writes the text, and optionally reads it back.
[[nodiscard]] ExitStatus RunInfoWrite(const RadioCommand& command, const EmbeddedInfo& info, bool isVerified);

// Lists COM1 to COM16 with their devices, and whether they can be opened.
[[nodiscard]] ExitStatus RunPorts(SerialPort& port, const std::function<std::string(int)>& deviceOf, bool asJson,
                                  Terminal& terminal);

} // namespace mr4500x
