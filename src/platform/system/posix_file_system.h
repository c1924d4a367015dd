#pragma once

#include "file_system.h"

namespace mr4500x {

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

} // namespace mr4500x
