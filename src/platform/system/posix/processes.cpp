#include "processes.h"

#include <csignal>
#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace mr4500x {

void BecomeProgram(const std::string& program, std::vector<std::string> arguments) {
  std::vector<char*> words;
  words.reserve(arguments.size() + 1);
  for (std::string& argument : arguments)
    words.push_back(argument.data());
  words.push_back(nullptr);
  execv(program.c_str(), words.data());
}

void IgnoreBrokenPipes() {
  std::signal(SIGPIPE, SIG_IGN);
}

std::string UserOfDevice(const std::string& device) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path wanted = fs::canonical(device, error);
  if (error) return {};
  for (fs::directory_iterator process("/proc", error), end; !error && process != end; process.increment(error)) {
    std::error_code hidden; // of another user's process, or of one that has ended
    for (fs::directory_iterator file(process->path() / "fd", hidden); !hidden && file != end; file.increment(hidden)) {
      if (fs::read_symlink(file->path(), hidden) != wanted) continue;
      std::string name;
      std::getline(std::ifstream(process->path() / "comm"), name);
      return name;
    }
  }
  return {};
}

} // namespace mr4500x
