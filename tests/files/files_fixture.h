// What the tests of files share: a folder of their own, and a file system whose calls can be made to fail.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "posix_file_system.h"
#include "profile.h"

namespace mr4500x {

// Counts the calls that can fail and fails the one numbered failAt, or all from there on.
class FaultyFileSystem final : public FileSystem {
public:
  int failAt = 0;
  bool failFromThereOn = false;
  std::size_t mostWritten = SIZE_MAX; // of one Write
  std::size_t diskRoom = SIZE_MAX;    // bytes until the disk is full
  std::set<std::string> unwritable;
  int calls = 0;

  std::optional<FileStatus> Status(const std::string& path) override {
    return Try([&] { return m_real.Status(path); });
  }
  std::optional<std::string> ReadLink(const std::string& path) override {
    return Try([&] { return m_real.ReadLink(path); });
  }
  bool CanWrite(const std::string& path) override {
    return Try([&] { return !unwritable.contains(path) && m_real.CanWrite(path); });
  }
  std::optional<std::vector<std::string>> List(const std::string& path) override {
    return Try([&] { return m_real.List(path); });
  }
  bool MakeFolder(const std::string& path) override {
    return Try([&] { return m_real.MakeFolder(path); });
  }
  std::optional<Handle> OpenToRead(const std::string& path) override {
    return Try([&] { return m_real.OpenToRead(path); });
  }
  std::optional<Handle> Create(const std::string& path, std::uint32_t mode) override {
    return Try([&] { return m_real.Create(path, mode); });
  }
  void Close(Handle file) override { m_real.Close(file); } // as the end of the process does
  bool Lock(Handle file) override {
    return Try([&] { return m_real.Lock(file); });
  }
  std::optional<std::size_t> ReadAt(Handle file, std::uint64_t offset, std::span<std::uint8_t> bytes) override {
    return Try([&] { return m_real.ReadAt(file, offset, bytes); });
  }
  std::optional<std::size_t> Write(Handle file, std::span<const std::uint8_t> bytes) override {
    m_unsynced = true;
    return Try([&]() -> std::optional<std::size_t> {
      if (diskRoom == 0) return std::nullopt;
      const auto count = m_real.Write(file, bytes.first(std::min({bytes.size(), mostWritten, diskRoom})));
      diskRoom -= count.value_or(0);
      return count;
    });
  }
  bool SetOwner(Handle file, std::uint32_t owner, std::uint32_t group) override {
    return Try([&] { return m_real.SetOwner(file, owner, group); });
  }
  bool SetGroup(Handle file, std::uint32_t group) override {
    return Try([&] { return m_real.SetGroup(file, group); });
  }
  bool SetMode(Handle file, std::uint32_t mode) override {
    return Try([&] { return m_real.SetMode(file, mode); });
  }
  bool Sync(Handle file) override {
    return Try([&] { return !(m_unsynced = !m_real.Sync(file)); });
  }
  bool Rename(const std::string& from, const std::string& to) override {
    EXPECT_FALSE(m_unsynced) << from << " takes its place before its bytes are on the disk";
    return Try([&] { return m_real.Rename(from, to); });
  }
  bool Remove(const std::string& path) override {
    return Try([&] { return m_real.Remove(path); });
  }
  bool SyncFolder(const std::string& path) override {
    return Try([&] { return m_real.SyncFolder(path); });
  }
  std::uint64_t UnpredictableNumber() override { return m_real.UnpredictableNumber(); }

private:
  template<typename Call>
  auto Try(Call call) -> decltype(call()) {
    ++calls;
    const bool fails = failAt > 0 && (failFromThereOn ? calls >= failAt : calls == failAt);
    return fails ? decltype(call()){} : call();
  }

  PosixFileSystem m_real;
  bool m_unsynced = false; // what was written last
};

inline bool WriteValue(FileSystem& files, const std::string& file, const std::string& key, const std::string& value) {
  const ProfileValue one{"S", key, value};
  return WriteProfileStrings(files, file, {&one, 1});
}

class FilesTest : public testing::Test {
protected:
  FilesTest() {
    std::string name = testing::TempDir() + "/files-XXXXXX";
    m_folder = mkdtemp(name.data());
  }
  ~FilesTest() override { std::filesystem::remove_all(m_folder); }

  [[nodiscard]] std::string Path(const std::string& name) const { return m_folder + '/' + name; }
  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  [[nodiscard]] std::string Content(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  [[nodiscard]] std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder))
      names.insert(entry.path().filename());
    return names;
  }

  FaultyFileSystem files;

private:
  std::string m_folder;
};

} // namespace mr4500x
