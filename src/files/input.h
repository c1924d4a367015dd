// What a program is given to read: a file, or its standard input in place of one.
#pragma once

#include "data_file.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::string_view Stream = "-"; // the path of a standard stream

// The path as messages show it.
[[nodiscard]] std::string NameOfSource(const std::string& path);

// In both, `stream` is read for "-", and a named pipe to its end. Without a stream, "-" is a file of that name.

// Loads a data file over the defaults, which fill in what no file holds.
[[nodiscard]] LoadResult LoadInput(FileSystem& files, const std::string& path, std::istream* stream, RadioImage& image);

struct TextInput {
  enum class Outcome : std::uint8_t { Read, Failed, TooLong };
  Outcome outcome = Outcome::Failed;
  std::string text;
  std::string reason; // the system's, if it failed
};
[[nodiscard]] TextInput ReadTextInput(FileSystem& files, const std::string& path, std::istream* stream);

} // namespace mr4500x
