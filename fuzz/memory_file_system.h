// One folder of files in memory, for the fuzzing of what is read from files and written back.
#pragma once

#include <algorithm>
#include <map>
#include <string>

#include "file_system.h"

namespace mr4500x {

class MemoryFileSystem final : public FileSystem {
public:
  std::map<std::string, std::string> files; // by their paths

  [[nodiscard]] bool HasOpenFiles() const { return !m_open.empty(); }

  std::optional<FileStatus> Status(const std::string& path) override {
    const auto found = files.find(path);
    if (found == files.end()) return FileStatus{};
    return FileStatus{FileKind::Regular, 0644, 0, 0, found->second.size()};
  }
  std::optional<std::string> ReadLink(const std::string&) override { return std::nullopt; }
  bool CanWrite(const std::string&) override { return true; }
  std::optional<std::vector<std::string>> List(const std::string&) override { return std::vector<std::string>{}; }
  bool MakeFolder(const std::string&) override { return true; }

  std::optional<Handle> OpenToRead(const std::string& path) override {
    return files.contains(path) ? std::optional(Opened(path)) : std::nullopt;
  }
  std::optional<Handle> Create(const std::string& path, std::uint32_t) override {
    return files.try_emplace(path).second ? std::optional(Opened(path)) : std::nullopt;
  }
  void Close(Handle file) override { m_open.erase(file); }
  bool Lock(Handle) override { return true; }
  std::optional<std::size_t> ReadAt(Handle file, std::uint64_t offset, std::span<std::uint8_t> bytes) override {
    const std::string& content = files.at(m_open.at(file));
    const std::size_t from = std::min<std::uint64_t>(offset, content.size());
    const std::size_t count = std::min(bytes.size(), content.size() - from);
    std::copy_n(content.begin() + static_cast<std::ptrdiff_t>(from), count, bytes.begin());
    return count;
  }
  std::optional<std::size_t> Write(Handle file, std::span<const std::uint8_t> bytes) override {
    files.at(m_open.at(file)).append(bytes.begin(), bytes.end());
    return bytes.size();
  }
  bool SetOwner(Handle, std::uint32_t, std::uint32_t) override { return true; }
  bool SetGroup(Handle, std::uint32_t) override { return true; }
  bool SetMode(Handle, std::uint32_t) override { return true; }
  bool Sync(Handle) override { return true; }

  bool Rename(const std::string& from, const std::string& to) override {
    if (!files.contains(from)) return false;
    files[to] = files.at(from);
    return Remove(from);
  }
  bool Remove(const std::string& path) override { return files.erase(path) == 1; }
  bool SyncFolder(const std::string&) override { return true; }
  std::uint64_t UnpredictableNumber() override { return ++m_number; }

private:
  Handle Opened(const std::string& path) {
    m_open[++m_lastHandle] = path;
    return m_lastHandle;
  }

  std::map<Handle, std::string> m_open;
  Handle m_lastHandle = 0;
  std::uint64_t m_number = 0;
};

} // namespace mr4500x
