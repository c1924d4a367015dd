#include "output.h"

#include "conventions.h"
#include "input.h"
#include "paths.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <system_error>
#include <thread>

namespace mr4500x {
namespace {

constexpr auto HasNoReader = std::errc::no_such_device_or_address; // a pipe
constexpr std::chrono::milliseconds ReaderPoll{20};
constexpr int MostReaderPolls = 250; // five seconds

} // namespace

bool IsStandardOutput(const std::string& path) {
  return path == Stream || OpenFileNamed(path) == 1;
}

bool IsWrittenInto(const std::string& path) {
  std::error_code unknown;
  const auto type = std::filesystem::status(PathOf(path), unknown).type();
  return path == Stream || OpenFileNamed(path) || type == std::filesystem::file_type::fifo ||
         type == std::filesystem::file_type::character;
}

std::string StandardStreamAt(const std::string& path) {
  std::error_code unknown;
  const auto isAt = [&](const char* stream) { return std::filesystem::equivalent(PathOf(path), stream, unknown); };
  if (std::filesystem::is_character_file(PathOf(path), unknown)) return "";
  if (OpenFileNamed(path) == 1 || isAt("/dev/stdout")) return "standard output"; // not at a pipe
  return OpenFileNamed(path) != 2 && isAt("/dev/stderr") ? "standard error" : "";
}

std::ofstream OpenToAppend(FileSystem& files, const std::string& path) {
  std::error_code unknown;
  const bool isPipe = std::filesystem::is_fifo(PathOf(path), unknown);
  const OpenFile pipe(files, isPipe ? files.OpenToWrite(path, 0666) : std::nullopt);
  return isPipe && !pipe ? std::ofstream() : std::ofstream(PathOf(path), std::ios::app);
}

FileResult StoreOutput(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes, Surplus surplus,
                       std::ostream& stream) {
  if (!IsWrittenInto(path)) return ReplaceFile(files, path, bytes, surplus);
  if (!IsStandardOutput(path)) {
    FileResult written = WriteInto(files, path, bytes);
    for (int polls = 0; written.error == HasNoReader && polls < MostReaderPolls; ++polls) {
      std::this_thread::sleep_for(ReaderPoll);
      written = WriteInto(files, path, bytes);
    }
    return written;
  }
  stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  return stream.flush() ? FileResult{} : SystemFailed();
}

FileResult MayStoreOutput(FileSystem& files, const std::string& path) {
  if (!IsWrittenInto(path)) return MayReplace(files, path);
  return IsStandardOutput(path) || files.CanWrite(path) ? FileResult{} : SystemFailed();
}

} // namespace mr4500x
