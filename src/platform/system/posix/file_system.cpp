#include "machine_files.h"

#include "conventions.h"
#include "machine.h"

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mr4500x {

namespace {

// Retries a system call that a signal interrupts.
template<typename Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR)
    result = call();
  return result;
}

FileKind KindOf(mode_t mode) {
  if (S_ISREG(mode)) return FileKind::Regular;
  if (S_ISDIR(mode)) return FileKind::Folder;
  if (S_ISLNK(mode)) return FileKind::Link;
  return FileKind::Other;
}

std::optional<FileSystem::Handle> Open(const std::string& path, int flags, mode_t mode = 0) {
  const int file = Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC, mode); });
  return file < 0 ? std::nullopt : std::optional(file);
}

// Plain system calls, retried when interrupted.
class PosixFileSystem final : public FileSystem {
public:
  std::optional<FileStatus> Status(const std::string& path) override;
  std::optional<std::string> ReadLink(const std::string& path) override;
  bool CanWrite(const std::string& path) override;
  std::optional<std::vector<std::string>> List(const std::string& folder) override;
  bool MakeFolder(const std::string& folder) override;

  std::optional<Handle> OpenToRead(const std::string& path) override;
  std::optional<Handle> Create(const std::string& path, std::uint32_t mode) override;
  std::optional<Handle> OpenToWrite(const std::string& path, std::uint32_t mode) override;
  void Close(Handle file) override;
  LockOutcome Lock(Handle file) override;
  std::optional<std::size_t> ReadAt(Handle file, std::uint64_t offset, std::span<std::uint8_t> bytes) override;
  std::optional<std::size_t> Write(Handle file, std::span<const std::uint8_t> bytes) override;
  bool SetOwner(Handle file, std::uint32_t owner, std::uint32_t group) override;
  bool SetGroup(Handle file, std::uint32_t group) override;
  bool SetMode(Handle file, std::uint32_t mode) override;
  bool SetSize(Handle file, std::uint64_t size) override;
  bool Sync(Handle file) override;

  bool Rename(const std::string& from, const std::string& to) override;
  bool Remove(const std::string& path) override;
  bool SyncFolder(const std::string& folder) override;

  std::uint64_t UnpredictableNumber() override;
};

} // namespace

std::optional<FileStatus> PosixFileSystem::Status(const std::string& path) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0)
    return errno == ENOENT || errno == ENOTDIR ? std::optional(FileStatus{}) : std::nullopt;
  return FileStatus{KindOf(status.st_mode),
                    status.st_mode & 07777U,
                    status.st_uid,
                    status.st_gid,
                    static_cast<std::uint64_t>(status.st_size),
                    status.st_dev,
                    status.st_ino,
                    LocalTimeOf(status.st_mtime)};
}

std::optional<std::string> PosixFileSystem::ReadLink(const std::string& path) {
  std::string target(PATH_MAX, '\0');
  const ssize_t length = readlink(path.c_str(), target.data(), target.size());
  if (length <= 0 || static_cast<std::size_t>(length) == target.size()) return std::nullopt;
  target.resize(static_cast<std::size_t>(length));
  return target;
}

bool PosixFileSystem::CanWrite(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return false;
  const int wanted = S_ISDIR(status.st_mode) ? W_OK | X_OK : W_OK;
  return faccessat(AT_FDCWD, path.c_str(), wanted, AT_EACCESS) == 0;
}

std::optional<std::vector<std::string>> PosixFileSystem::List(const std::string& folder) {
  DIR* entries = opendir(folder.c_str());
  if (entries == nullptr) return std::nullopt;
  std::vector<std::string> names;
  while (const dirent* entry = readdir(entries))
    names.emplace_back(entry->d_name);
  closedir(entries);
  return names;
}

bool PosixFileSystem::MakeFolder(const std::string& folder) {
  return mkdir(folder.c_str(), 0777) == 0;
}

// Non-blocking, so that a pipe in place of a file can't hang the program.
std::optional<FileSystem::Handle> PosixFileSystem::OpenToRead(const std::string& path) {
  return Open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
}
std::optional<FileSystem::Handle> PosixFileSystem::Create(const std::string& path, std::uint32_t mode) {
  return Open(path, O_WRONLY | O_CREAT | O_EXCL, mode);
}
std::optional<FileSystem::Handle> PosixFileSystem::OpenToWrite(const std::string& path, std::uint32_t mode) {
  const int followed = OpenFileNamed(path) ? 0 : O_NOFOLLOW;
  const auto file = Open(path, O_WRONLY | O_CREAT | O_NOCTTY | O_NONBLOCK | followed, mode);
  if (file) fcntl(*file, F_SETFL, 0); // writes wait
  return file;
}
void PosixFileSystem::Close(Handle file) {
  close(file);
}
LockOutcome PosixFileSystem::Lock(Handle file) {
  if (Uninterrupted([&] { return flock(file, LOCK_EX | LOCK_NB); }) == 0) return LockOutcome::Taken;
  return errno == EWOULDBLOCK ? LockOutcome::HeldByOther : LockOutcome::NotPossible;
}

std::optional<std::size_t> PosixFileSystem::ReadAt(Handle file, std::uint64_t offset, std::span<std::uint8_t> bytes) {
  const ssize_t count =
      Uninterrupted([&] { return pread(file, bytes.data(), bytes.size(), static_cast<off_t>(offset)); });
  return count < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(count));
}

std::optional<std::size_t> PosixFileSystem::Write(Handle file, std::span<const std::uint8_t> bytes) {
  const ssize_t count = Uninterrupted([&] { return write(file, bytes.data(), bytes.size()); });
  return count <= 0 ? std::nullopt : std::optional(static_cast<std::size_t>(count));
}

bool PosixFileSystem::SetOwner(Handle file, std::uint32_t owner, std::uint32_t group) {
  return fchown(file, owner, group) == 0;
}
bool PosixFileSystem::SetGroup(Handle file, std::uint32_t group) {
  return fchown(file, static_cast<uid_t>(-1), group) == 0;
}
bool PosixFileSystem::SetMode(Handle file, std::uint32_t mode) {
  return fchmod(file, mode) == 0;
}
bool PosixFileSystem::SetSize(Handle file, std::uint64_t size) {
  return Uninterrupted([&] { return ftruncate(file, static_cast<off_t>(size)); }) == 0;
}
bool PosixFileSystem::Sync(Handle file) {
  return Uninterrupted([&] { return fsync(file); }) == 0;
}
bool PosixFileSystem::Rename(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}
bool PosixFileSystem::Remove(const std::string& path) {
  return unlink(path.c_str()) == 0;
}

bool PosixFileSystem::SyncFolder(const std::string& folder) {
  const auto file = Open(folder, O_RDONLY | O_DIRECTORY);
  if (!file) return false;
  const bool synced = Sync(*file);
  Close(*file);
  return synced;
}

std::uint64_t PosixFileSystem::UnpredictableNumber() {
  std::uint64_t number = 0;
  if (getentropy(&number, sizeof number) == 0) return number;
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  return static_cast<std::uint64_t>(now) * 0x9E3779B97F4A7C15U + static_cast<std::uint64_t>(getpid());
}

FileSystem& MachineFiles() {
  static PosixFileSystem files;
  return files;
}

} // namespace mr4500x
