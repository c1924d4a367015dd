#include "output.h"

#include "conventions.h"
#include "input.h"
#include "paths.h"

#include <chrono>
#include <filesystem>
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

bool IsAlsoStandardOutput(const std::string& path) {
  std::error_code unknown;
  const bool isSame =
      OpenFileNamed(path) == 1 || std::filesystem::equivalent(PathOf(path), "/dev/stdout", unknown); // false for pipes
  return isSame && !std::filesystem::is_character_file(PathOf(path), unknown);
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
