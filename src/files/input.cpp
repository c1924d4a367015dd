#include "input.h"

#include "file_access.h"

#include <istream>

namespace mr4500x {
namespace {

constexpr std::size_t MostTextBytes = std::size_t{1} << 24;

std::vector<std::uint8_t> ReadStream(std::istream& stream, std::size_t limit) {
  std::vector<std::uint8_t> bytes(limit);
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(limit));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

} // namespace

std::string NameOfSource(const std::string& path) {
  return path == Stream ? "standard input" : path;
}

LoadResult LoadInput(FileSystem& files, const std::string& path, std::istream* stream, RadioImage& image) {
  ResetToDefaults(image, {});
  if (stream == nullptr || path != Stream) return LoadDataFile(files, path, image);
  return ParseDataFile(ReadStream(*stream, DataFileReadLimit), image);
}

TextInput ReadTextInput(FileSystem& files, const std::string& path, std::istream* stream) {
  using enum TextInput::Outcome;
  std::vector<std::uint8_t> bytes;
  if (stream != nullptr && path == Stream)
    bytes = ReadStream(*stream, MostTextBytes + 1);
  else if (const ReadResult read = ReadFile(files, path, MostTextBytes + 1, bytes); read != ReadOutcome::Read)
    return {Failed, "", read.result.Reason()};
  if (bytes.size() > MostTextBytes) return {TooLong, "", ""}; // what it would be cut to may make sense
  return {Read, std::string(bytes.begin(), bytes.end()), ""};
}

} // namespace mr4500x
