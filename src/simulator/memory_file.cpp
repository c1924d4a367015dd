#include "memory_file.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace mr4500x {

std::optional<std::string> LoadOrCreate(const std::string& path, RadioMemory& memory) {
  std::error_code error;
  if (!std::filesystem::exists(path, error) && !error) return Store(path, memory);
  std::ifstream file(path, std::ios::binary);
  RadioMemory stored{};
  file.read(reinterpret_cast<char*>(stored.data()), RadioMemoryBytes);
  if (!file || file.peek() != std::ifstream::traits_type::eof())
    return path + " is not a memory file of " + std::to_string(RadioMemoryBytes) + " bytes";
  memory = stored;
  return std::nullopt;
}

std::optional<std::string> Store(const std::string& path, const RadioMemory& memory) {
  const std::string fresh = path + ".new";
  std::error_code error;
  {
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(memory.data()), RadioMemoryBytes);
    file.close();
    if (!file) error = std::make_error_code(std::errc::io_error);
  }
  if (!error) std::filesystem::rename(fresh, path, error);
  if (!error) return std::nullopt;
  std::error_code ignored;
  std::filesystem::remove(fresh, ignored);
  return "cannot write " + path + ": " + error.message();
}

} // namespace mr4500x
