#include "input.h"

#include "file_access.h"
#include "paths.h"
#include "utf8.h"

#include <filesystem>
#include <fstream>
#include <istream>
#include <optional>

namespace mr4500x {
namespace {

constexpr std::size_t MostTextBytes = std::size_t{1} << 24;

std::vector<std::uint8_t> ReadStream(std::istream& stream, std::size_t limit) {
  std::vector<std::uint8_t> bytes(limit);
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(limit));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

// The bytes of standard input, or of a named pipe such as a shell's `<(...)`. nullopt for anything else.
std::optional<std::vector<std::uint8_t>> ReadPiped(const std::string& path, std::istream* stream, std::size_t limit) {
  if (stream == nullptr) return std::nullopt;
  if (path == Stream) return ReadStream(*stream, limit);
  std::error_code unknown;
  if (!std::filesystem::is_fifo(PathOf(path), unknown)) return std::nullopt;
  std::ifstream pipe(PathOf(path), std::ios::binary);
  return pipe ? std::optional(ReadStream(pipe, limit)) : std::nullopt;
}

} // namespace

std::string NameOfSource(const std::string& path) {
  constexpr std::size_t LongestPath = 4096;
  return path == Stream ? "standard input" : Printable(path, LongestPath);
}

LoadResult LoadInput(FileSystem& files, const std::string& path, std::istream* stream, RadioImage& image) {
  ResetToDefaults(image, {});
  const auto piped = ReadPiped(path, stream, DataFileReadLimit);
  return piped ? ParseDataFile(*piped, image) : LoadDataFile(files, path, image);
}

TextInput ReadTextInput(FileSystem& files, const std::string& path, std::istream* stream) {
  using enum TextInput::Outcome;
  std::vector<std::uint8_t> bytes;
  if (auto piped = ReadPiped(path, stream, MostTextBytes + 1))
    bytes = std::move(*piped);
  else if (const ReadResult read = ReadFile(files, path, MostTextBytes + 1, bytes); read != ReadOutcome::Read)
    return {Failed, "", read.result.Reason()};
  if (bytes.size() > MostTextBytes) return {TooLong, "", ""}; // a truncated text might look valid
  return {Read, std::string(bytes.begin(), bytes.end()), ""};
}

} // namespace mr4500x
