// Access to files, one operation per system call, so that tests can make each of them fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "clock.h"

namespace mr4500x {

enum class FileKind { Missing, Regular, Folder, Link, Other };

struct FileStatus {
  FileKind kind = FileKind::Missing;
  std::uint32_t mode = 0; // permission bits
  std::uint32_t owner = 0;
  std::uint32_t group = 0;
  std::uint64_t size = 0;
  std::uint64_t device = 0, number = 0; // identify the file system and the file on it
  LocalTime changed{};                  // when it was last written
};

enum class LockOutcome {
  NotPossible, // for instance a file system without locks
  HeldByOther,
  Taken,
};

// Paths are UTF-8. Operations return false or nullopt on failure.
class FileSystem {
public:
  using Handle = int;

  virtual ~FileSystem() = default;

  // Does not follow a final link. A path that does not exist is Missing, not a failure.
  [[nodiscard]] virtual std::optional<FileStatus> Status(const std::string& path) = 0;
  [[nodiscard]] virtual std::optional<std::string> ReadLink(const std::string& path) = 0;
  [[nodiscard]] virtual bool CanWrite(const std::string& path) = 0; // for a folder: create files in it
  [[nodiscard]] virtual std::optional<std::vector<std::string>> List(const std::string& folder) = 0;
  [[nodiscard]] virtual bool MakeFolder(const std::string& folder) = 0;

  [[nodiscard]] virtual std::optional<Handle> OpenToRead(const std::string& path) = 0; // fails on a link
  // Opens a new file for writing. Fails if the path exists, even as a dangling link.
  [[nodiscard]] virtual std::optional<Handle> Create(const std::string& path, std::uint32_t mode) = 0;
  // Opens for writing from the start. Creates a missing file; fails on a link, unless it is a name of an open file, and
  // on a pipe without a reader.
  [[nodiscard]] virtual std::optional<Handle> OpenToWrite(const std::string& path, std::uint32_t mode) = 0;
  virtual void Close(Handle file) = 0;
  // Takes an exclusive lock without waiting. Close or the end of the process releases it.
  [[nodiscard]] virtual LockOutcome Lock(Handle file) = 0;
  // Locks a file that is replaced while the lock is held, which may need another file beside it. The caller closes
  // `lock`.
  [[nodiscard]] virtual LockOutcome LockToReplace(const std::string& path, std::optional<Handle>& lock) {
    lock = OpenToRead(path);
    return lock ? Lock(*lock) : LockOutcome::NotPossible;
  }
  // Reads up to bytes.size() bytes; returns 0 at the end of the file.
  [[nodiscard]] virtual std::optional<std::size_t> ReadAt(Handle file, std::uint64_t offset,
                                                          std::span<std::uint8_t> bytes) = 0;
  // Writes at least one byte, possibly not all of them.
  [[nodiscard]] virtual std::optional<std::size_t> Write(Handle file, std::span<const std::uint8_t> bytes) = 0;
  [[nodiscard]] virtual bool SetOwner(Handle file, std::uint32_t owner, std::uint32_t group) = 0;
  [[nodiscard]] virtual bool SetGroup(Handle file, std::uint32_t group) = 0;
  [[nodiscard]] virtual bool SetMode(Handle file, std::uint32_t mode) = 0;
  [[nodiscard]] virtual bool SetSize(Handle file, std::uint64_t size) = 0;
  [[nodiscard]] virtual bool Sync(Handle file) = 0; // flushes the file to the disk

  [[nodiscard]] virtual bool Rename(const std::string& from, const std::string& to) = 0; // replaces `to` atomically
  [[nodiscard]] virtual bool Remove(const std::string& path) = 0;
  [[nodiscard]] virtual bool SyncFolder(const std::string& folder) = 0; // flushes its entries to the disk

  [[nodiscard]] virtual std::uint64_t UnpredictableNumber() = 0;
};

} // namespace mr4500x
