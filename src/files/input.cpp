#include "input.h"

#include "file_access.h"
#include "paths.h"
#include "utf8.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace mr4500x {
namespace {

constexpr std::size_t MostTextBytes = std::size_t{1} << 24;

ReadResult ReadStream(std::istream& stream, std::size_t limit, std::vector<std::uint8_t>& bytes) {
  bytes.resize(limit);
  errno = 0;
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(limit));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  // A failed read looks like the end of the input to std::cin.
  const bool hasFailed = stream.bad() || (stream.rdbuf() == std::cin.rdbuf() && std::ferror(stdin) != 0);
  return hasFailed ? ReadResult{ReadOutcome::Failed, SystemFailed()} : ReadResult{ReadOutcome::Read, {}};
}

// Reads a file, standard input, or a named pipe such as a shell's `<(...)`.
ReadResult ReadInput(FileSystem& files, const std::string& path, std::istream* stream, std::size_t limit,
                     std::vector<std::uint8_t>& bytes) {
  if (stream != nullptr && path == Stream) return ReadStream(*stream, limit, bytes);
  std::error_code unknown;
  if (stream == nullptr || !std::filesystem::is_fifo(PathOf(path), unknown)) return ReadFile(files, path, limit, bytes);
  std::ifstream pipe(PathOf(path), std::ios::binary);
  return pipe ? ReadStream(pipe, limit, bytes) : ReadResult{ReadOutcome::Failed, SystemFailed()};
}

} // namespace

std::string NameOfSource(const std::string& path) {
  constexpr std::size_t LongestPath = 4096;
  return path == Stream ? "standard input" : Printable(path, LongestPath);
}

LoadResult LoadInput(FileSystem& files, const std::string& path, std::istream* stream, RadioImage& image) {
  ResetToDefaults(image, {});
  std::vector<std::uint8_t> bytes;
  const ReadResult read = ReadInput(files, path, stream, DataFileReadLimit, bytes);
  return ResultOfLoad(read, bytes, image);
}

TextInput ReadTextInput(FileSystem& files, const std::string& path, std::istream* stream) {
  using enum TextInput::Outcome;
  std::vector<std::uint8_t> bytes;
  const ReadResult read = ReadInput(files, path, stream, MostTextBytes + 1, bytes);
  if (read != ReadOutcome::Read) return {Failed, "", read.result.Reason()};
  if (bytes.size() > MostTextBytes) return {TooLong, "", ""}; // a truncated text might look valid
  return {Read, std::string(bytes.begin(), bytes.end()), ""};
}

} // namespace mr4500x
