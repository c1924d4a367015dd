#include "processes.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mr4500x {
namespace {

// A file without a name. A pipe would block when its reader or writer blocks.
class MemoryFile {
public:
  explicit MemoryFile(std::string_view content) : m_file(memfd_create("command", MFD_CLOEXEC)) {
    static_cast<void>(write(m_file, content.data(), content.size()) < 0);
    lseek(m_file, 0, SEEK_SET);
  }
  ~MemoryFile() { close(m_file); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  [[nodiscard]] int Number() const { return m_file; }
  [[nodiscard]] std::string LastLine() const {
    constexpr off_t Most = 400;
    std::string text(static_cast<std::size_t>(Most), '\0');
    const off_t size = lseek(m_file, 0, SEEK_END), begin = std::max<off_t>(0, size - Most);
    const ssize_t count = pread(m_file, text.data(), text.size(), begin);
    text.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
    text.erase(text.find_last_not_of(" \t\r\n") + 1);
    return text.substr(text.find_last_of('\n') + 1);
  }

private:
  const int m_file;
};

// The number of the process, or errno. The process has its own group, so that its children can be ended with it.
int StartShell(const std::string& command, const MemoryFile& input, const MemoryFile& errors, pid_t& process) {
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, input.Number(), STDIN_FILENO);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&files, errors.Number(), STDERR_FILENO);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t none, broken; // this program holds some signals back, and ignores broken pipes
  sigemptyset(&none);
  sigemptyset(&broken);
  sigaddset(&broken, SIGPIPE);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setsigdefault(&attributes, &broken);
  posix_spawnattr_setpgroup(&attributes, 0);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  std::string shell = "sh", option = "-c", text = command;
  char* const arguments[] = {shell.data(), option.data(), text.data(), nullptr};
  const int failure = posix_spawn(&process, "/bin/sh", &files, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  return failure;
}

} // namespace

CommandEnd RunCommand(const std::string& command, std::string_view input, std::chrono::milliseconds limit) {
  constexpr std::chrono::milliseconds Poll{10};
  constexpr int NotStarted = 127, BySignal = 128; // as the shell has them
  const MemoryFile given(input), errors("");
  pid_t process = 0;
  if (const int failure = StartShell(command, given, errors, process)) return {NotStarted, std::strerror(failure)};
  int status = 0;
  for (auto left = limit; waitpid(process, &status, WNOHANG) == 0; left -= Poll) {
    if (left <= Poll * 0) {
      kill(-process, SIGKILL);
      waitpid(process, &status, 0);
      return {std::nullopt, errors.LastLine()};
    }
    std::this_thread::sleep_for(Poll);
  }
  return {WIFEXITED(status) ? WEXITSTATUS(status) : BySignal + WTERMSIG(status), errors.LastLine()};
}

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
    std::error_code hidden; // the process may belong to another user or have ended
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
