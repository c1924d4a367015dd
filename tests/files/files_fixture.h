// The fixture of the file tests: a temporary folder, and a file system whose calls can be made to fail.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <mutex>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "machine_files.h"
#include "new_folder.h"
#include "profile.h"

namespace mr4500x {

// Counts the calls that can fail and fails the one numbered failAt, or ends the process there.
class FaultyFileSystem final : public FileSystem {
public:
  using Path = const std::string&;
  static constexpr int Killed = 99; // the exit status
  int failAt = 0;
  bool isKilled = false;              // instead
  std::size_t mostWritten = SIZE_MAX; // bytes of one Write
  std::size_t diskRoom = SIZE_MAX;    // bytes until the disk is full
  std::set<std::string> unwritable;
  bool hasModes = true, canCreate = true, canRename = true, canWrite = true; // properties of a network share
  enum class Locks { All, OfWriters, None } locks = Locks::All;
  std::function<void(Path path, FileStatus& status)> alter = [](Path, FileStatus&) {};
  std::function<void(Handle)> beforeLock; // once
  std::function<void()> beforeSync = [] {};
  int calls = 0;
  int writtenInPlace = 0;
  std::string unsyncedFolder; // whose new entry a power cut would lose

  std::optional<FileStatus> Status(Path path) override {
    auto status = Try(&FileSystem::Status, path);
    if (status) alter(path, *status);
    return status;
  }
  std::optional<std::string> ReadLink(Path path) override { return Try(&FileSystem::ReadLink, path); }
  bool CanWrite(Path path) override { return Try(&FileSystem::CanWrite, path) && !unwritable.contains(path); }
  std::optional<std::vector<std::string>> List(Path path) override { return Try(&FileSystem::List, path); }
  bool MakeFolder(Path path) override { return Try(&FileSystem::MakeFolder, path); }
  std::optional<Handle> OpenToRead(Path path) override {
    const auto file = Try(&FileSystem::OpenToRead, path);
    const std::lock_guard lock(m_mutex);
    if (file) m_readers.insert(*file);
    return file;
  }
  std::optional<Handle> Create(Path path, std::uint32_t mode) override {
    const auto file = canCreate ? Try(&FileSystem::Create, path, mode) : std::nullopt;
    const std::lock_guard lock(m_mutex);
    if (file) m_created[*file] = path;
    return file;
  }
  std::optional<Handle> OpenToWrite(Path path, std::uint32_t mode) override {
    ++writtenInPlace;
    if (!canWrite) return std::nullopt;
    return Try(&FileSystem::OpenToWrite, path, mode);
  }
  void Close(Handle file) override { // like the end of the process
    {
      const std::lock_guard lock(m_mutex);
      m_readers.erase(file);
    }
    m_real.Close(file);
  }
  LockOutcome Lock(Handle file) override {
    if (beforeLock) std::exchange(beforeLock, nullptr)(file);
    if (locks == Locks::None || (locks == Locks::OfWriters && IsReader(file))) return LockOutcome::NotPossible;
    return Try(&FileSystem::Lock, file);
  }
  std::optional<std::size_t> ReadAt(Handle file, std::uint64_t offset, std::span<std::uint8_t> bytes) override {
    return Try(&FileSystem::ReadAt, file, offset, bytes);
  }
  std::optional<std::size_t> Write(Handle file, std::span<const std::uint8_t> bytes) override {
    SetSynced(file, false);
    if (diskRoom == 0) return std::nullopt;
    const auto count = Try(&FileSystem::Write, file, bytes.first(std::min({bytes.size(), mostWritten, diskRoom})));
    diskRoom -= count.value_or(0);
    return count;
  }
  bool SetOwner(Handle file, std::uint32_t owner, std::uint32_t group) override {
    return Try(&FileSystem::SetOwner, file, owner, group);
  }
  bool SetGroup(Handle file, std::uint32_t group) override { return Try(&FileSystem::SetGroup, file, group); }
  bool SetMode(Handle file, std::uint32_t mode) override { return hasModes && Try(&FileSystem::SetMode, file, mode); }
  bool SetSize(Handle file, std::uint64_t size) override { return Try(&FileSystem::SetSize, file, size); }
  bool Sync(Handle file) override {
    beforeSync();
    const bool isSynced = Try(&FileSystem::Sync, file);
    SetSynced(file, isSynced);
    return isSynced;
  }
  bool Rename(Path from, Path to) override {
    const bool renamed = canRename && Try(&FileSystem::Rename, from, to);
    const std::lock_guard lock(m_mutex);
    EXPECT_FALSE(m_unsynced.contains(from)) << from << " takes its place before its bytes are on the disk";
    if (renamed) unsyncedFolder = std::filesystem::path(to).parent_path().string();
    return renamed;
  }
  [[nodiscard]] bool IsSynced() const { return !m_unsynced.contains(""); } // what was written in place
  bool Remove(Path path) override { return Try(&FileSystem::Remove, path); }
  bool SyncFolder(Path path) override {
    {
      const std::lock_guard lock(m_mutex);
      if (path == unsyncedFolder) unsyncedFolder.clear();
    }
    return Try(&FileSystem::SyncFolder, path);
  }
  std::uint64_t UnpredictableNumber() override { return m_real.UnpredictableNumber(); }

private:
  template<typename Answer, typename... Parameters>
  Answer Try(Answer (FileSystem::*call)(Parameters...), std::type_identity_t<Parameters>... arguments) {
    const bool fails = NextFails();
    if (fails && isKilled) std::_Exit(Killed); // has the same effect on the files
    return fails ? Answer{} : (m_real.*call)(arguments...);
  }

  bool NextFails() {
    const std::lock_guard lock(m_mutex);
    return ++calls == failAt;
  }
  bool IsReader(Handle file) {
    const std::lock_guard lock(m_mutex);
    return m_readers.contains(file);
  }
  void SetSynced(Handle file, bool isSynced) {
    const std::lock_guard lock(m_mutex);
    if (isSynced)
      m_unsynced.erase(m_created[file]);
    else
      m_unsynced.insert(m_created[file]);
  }

  FileSystem& m_real = MachineFiles();
  std::mutex m_mutex; // copies of unsaved work are written by another thread
  std::map<Handle, std::string> m_created;
  std::set<std::string> m_unsynced;
  std::set<Handle> m_readers;
};

inline bool WriteValue(FileSystem& files, const std::string& file, const std::string& key, const std::string& value) {
  const ProfileValue one{"S", key, value};
  return WriteProfileStrings(files, file, {&one, 1});
}

inline const std::string Leftover = ".mr4500x-save-0123456789abcdef"; // the leftover of a killed save

class FilesTest : public testing::Test {
protected:
  explicit FilesTest(const std::string& parent = testing::TempDir()) : m_folder(NewFolder(parent)) {}
  ~FilesTest() override { std::filesystem::remove_all(m_folder); }

  [[nodiscard]] std::string Path(const std::string& name) const { return m_folder + '/' + name; }
  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  // Settings with the devices of some ports. The other ports have none, although the machine may have serial devices.
  void PutPortDevices(const std::string& name, const std::string& lines) const {
    std::string text = "[Port Devices]\n" + lines;
    for (int port = 1; port <= 16; ++port)
      text += "COM" + std::to_string(port) + "=,rts=off\n"; // the first line of a port counts
    Put(name, text);
  }
  [[nodiscard]] std::string Content(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  [[nodiscard]] unsigned ModeOf(const std::string& name) const {
    return static_cast<unsigned>(std::filesystem::status(Path(name)).permissions());
  }
  [[nodiscard]] std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder))
      names.insert(entry.path().filename().string());
    return names;
  }

  FaultyFileSystem files;

private:
  std::string m_folder;
};

} // namespace mr4500x
