// Input of a program: a file, or standard input instead of one.
#pragma once

#include "data_file.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace mr4500x {

inline constexpr std::string_view Stream = "-"; // the path of a standard stream

// The name of the input in messages.
[[nodiscard]] std::string NameOfSource(const std::string& path);

// Both functions read `stream` for "-", and read a named pipe to its end. Without a stream, "-" is an ordinary file
// name.

// Resets the image to its defaults and loads a data file into it.
[[nodiscard]] LoadResult LoadInput(FileSystem& files, const std::string& path, std::istream* stream, RadioImage& image);

struct TextInput {
  enum class Outcome : std::uint8_t { Read, Failed, TooLong };
  Outcome outcome = Outcome::Failed;
  std::string text;
  std::string reason; // the system's, if it failed
};
[[nodiscard]] TextInput ReadTextInput(FileSystem& files, const std::string& path, std::istream* stream);

} // namespace mr4500x
