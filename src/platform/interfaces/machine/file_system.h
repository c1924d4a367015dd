// Files as the savers and readers of files see them: one operation a system call, so that each can be made to fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace mr4500x {

enum class FileKind { Missing, Regular, Folder, Link, Other };

struct FileStatus {
  FileKind kind = FileKind::Missing;
  std::uint32_t mode = 0; // permission bits
  std::uint32_t owner = 0;
  std::uint32_t group = 0;
  std::uint64_t size = 0;
};

// Paths are UTF-8. Every operation answers false or nothing when it failed.
class FileSystem {
public:
  using Handle = int;

  virtual ~FileSystem() = default;

  // Of the path itself: a link in its last place is a Link. That nothing is there is an answer, not a failure.
  [[nodiscard]] virtual std::optional<FileStatus> Status(const std::string& path) = 0;
  [[nodiscard]] virtual std::optional<std::string> ReadLink(const std::string& path) = 0;
  [[nodiscard]] virtual bool CanWrite(const std::string& path) = 0; // a folder: create files in it
  [[nodiscard]] virtual std::optional<std::vector<std::string>> List(const std::string& folder) = 0;
  [[nodiscard]] virtual bool MakeFolder(const std::string& folder) = 0;

  [[nodiscard]] virtual std::optional<Handle> OpenToRead(const std::string& path) = 0; // no link in the last place
  // Opens a new file to write. Fails where there is anything already, even a link that leads nowhere.
  [[nodiscard]] virtual std::optional<Handle> Create(const std::string& path, std::uint32_t mode) = 0;
  virtual void Close(Handle file) = 0;
  // Takes the file's one lock without waiting. It goes with Close, or with the process however that ends.
  [[nodiscard]] virtual bool Lock(Handle file) = 0;
  // Up to the size of `bytes`; 0 at the end of the file.
  [[nodiscard]] virtual std::optional<std::size_t> ReadAt(Handle file, std::uint64_t offset,
                                                          std::span<std::uint8_t> bytes) = 0;
  // At least one byte, not always all of them.
  [[nodiscard]] virtual std::optional<std::size_t> Write(Handle file, std::span<const std::uint8_t> bytes) = 0;
  [[nodiscard]] virtual bool SetOwner(Handle file, std::uint32_t owner, std::uint32_t group) = 0;
  [[nodiscard]] virtual bool SetGroup(Handle file, std::uint32_t group) = 0;
  [[nodiscard]] virtual bool SetMode(Handle file, std::uint32_t mode) = 0;
  [[nodiscard]] virtual bool Sync(Handle file) = 0; // returns when the file's bytes are on the disk

  [[nodiscard]] virtual bool Rename(const std::string& from, const std::string& to) = 0; // replaces `to` in one step
  [[nodiscard]] virtual bool Remove(const std::string& path) = 0;
  [[nodiscard]] virtual bool SyncFolder(const std::string& folder) = 0; // the same for its entries

  [[nodiscard]] virtual std::uint64_t UnpredictableNumber() = 0;
};

} // namespace mr4500x
