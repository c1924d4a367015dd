// Output of a command: a file that is replaced, or something that is written into: standard output, a pipe or a device.
#pragma once

#include "file_access.h"

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>

namespace mr4500x {

// "-", or a name of the open file, such as /dev/stdout.
[[nodiscard]] bool IsStandardOutput(const std::string& path);

// Whether the path is written into: standard output, another open file, a pipe or a character device.
[[nodiscard]] bool IsWrittenInto(const std::string& path);

// "standard output" or "standard error" if it is the file at the path. "" for a terminal or other character device,
// which can be both, and for a name of standard error, which is meant.
[[nodiscard]] std::string StandardStreamAt(const std::string& path);

// Writes into the path, with `stream` as standard output, or replaces the file. Waits for the reader of a pipe, for at
// most five seconds.
FileResult StoreOutput(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes, Surplus surplus,
                       std::ostream& stream);

// Whether StoreOutput would try to write.
FileResult MayStoreOutput(FileSystem& files, const std::string& path);

// The file for appending, not open if it can't be. Does not wait for the reader of a pipe.
[[nodiscard]] std::ofstream OpenToAppend(FileSystem& files, const std::string& path);

} // namespace mr4500x
