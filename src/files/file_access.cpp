#include "file_access.h"

#include "text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string_view>

#include "conventions.h"

namespace mr4500x {
namespace {

constexpr int MostLinks = 40;        // more are taken for a loop
constexpr int MostTemporaries = 100; // that other saves may remove before one is locked
constexpr std::size_t CopyBytes = 16384;
constexpr std::uint32_t PrivateMode = 0600; // until the temporary file has the old file's owner
constexpr std::uint32_t PermissionBits = 0777;
constexpr std::uint32_t WriteBits = 0222;

// Independent of the saved file's name, which may already have the greatest length allowed.
constexpr std::string_view TemporaryPrefix = ".mr4500x-save-";

bool IsTemporaryName(std::string_view name) {
  return name.starts_with(TemporaryPrefix) && IsHexText(name.substr(TemporaryPrefix.size()));
}

std::string InFolder(std::string folder, std::string_view name) {
  return (folder += Separator).append(name);
}

struct PlacedFile {
  std::string path;
  FileStatus status;
};

// The file may be missing.
std::optional<PlacedFile> FollowLinks(FileSystem& files, std::string path) {
  errno = ENOENT;
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  for (int links = 0; links <= MostLinks; ++links) {
    const auto status = files.Status(path);
    if (!status) return std::nullopt;
    if (status->kind != FileKind::Link) return PlacedFile{std::move(path), *status};
    const auto target = files.ReadLink(path);
    if (!target) return std::nullopt;
    path = IsAbsolute(*target) ? *target : InFolder(FolderOf(path), *target);
  }
  errno = ELOOP;
  return std::nullopt;
}

// A file of any kind is there, but not to be read or written.
int ReasonAgainst(FileKind kind) {
  return kind == FileKind::Regular ? EACCES : kind == FileKind::Folder ? EISDIR : EINVAL;
}

bool IsRefused(FileSystem& files, const PlacedFile& target) {
  const auto& [path, old] = target;
  if (old.kind == FileKind::Missing) return false;
  if (old.kind == FileKind::Regular && (old.mode & WriteBits) != 0) return !files.CanWrite(path);
  errno = ReasonAgainst(old.kind);
  return true;
}

void RemoveLeftovers(FileSystem& files, const std::string& folder) {
  for (const std::string& name : files.List(folder).value_or(std::vector<std::string>{})) {
    if (!IsTemporaryName(name)) continue;
    const std::string path = InFolder(folder, name);
    const auto status = files.Status(path);
    if (!status || status->kind != FileKind::Regular) continue;
    const auto file = files.OpenToRead(path);
    if (!file) continue;
    if (files.Lock(*file) == LockOutcome::Taken) static_cast<void>(files.Remove(path)); // else left to a later save
    files.Close(*file);
  }
}

bool WriteAll(FileSystem& files, FileSystem::Handle file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const auto count = files.Write(file, bytes);
    if (!count || *count == 0) return false;
    bytes = bytes.subspan(*count);
  }
  return true;
}

// The new file. Removed again unless TakePlace succeeded.
class Temporary {
public:
  Temporary(FileSystem& files, const std::string& folder, std::uint32_t mode) : m_files(files) {
    for (int tries = 0; tries < MostTemporaries && !m_file; ++tries) {
      m_path = InFolder(folder, std::string(TemporaryPrefix) + HexText(files.UnpredictableNumber()));
      m_file = files.Create(m_path, mode);
      if (!m_file) return;
      if (IsTakenForLeftover()) Drop();
    }
  }
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  ~Temporary() {
    if (m_file) Drop();
  }

  [[nodiscard]] bool IsOpen() const { return m_file.has_value(); }

  [[nodiscard]] bool Write(std::span<const std::uint8_t> bytes) { return WriteAll(m_files, *m_file, bytes); }

  // Appends the old file's bytes from `offset`.
  [[nodiscard]] bool WriteSurplus(const std::string& oldPath, std::uint64_t offset) {
    const auto old = m_files.OpenToRead(oldPath);
    if (!old) return false;
    std::array<std::uint8_t, CopyBytes> buffer{};
    auto count = m_files.ReadAt(*old, offset, buffer);
    while (count && *count > 0 && Write(std::span(buffer).first(*count))) {
      offset += *count;
      count = m_files.ReadAt(*old, offset, buffer);
    }
    m_files.Close(*old);
    return count && *count == 0;
  }

  [[nodiscard]] bool TakeOver(const FileStatus& old) {
    // Only root can give a file to another user; else keep at least the group.
    if (!m_files.SetOwner(*m_file, old.owner, old.group)) static_cast<void>(m_files.SetGroup(*m_file, old.group));
    return m_files.SetMode(*m_file, old.mode & PermissionBits);
  }

  [[nodiscard]] bool Sync() { return m_files.Sync(*m_file); }
  [[nodiscard]] bool TakePlace(const std::string& path) {
    m_tookPlace = m_files.Rename(m_path, path);
    return m_tookPlace;
  }

private:
  // Until it has its lock, another save may take the file for a leftover, lock it and remove it. A file system without
  // locks does not stop the save: there no other save can lock and remove this file either.
  [[nodiscard]] bool IsTakenForLeftover() {
    if (m_files.Lock(*m_file) == LockOutcome::HeldByOther) return true;
    const auto status = m_files.Status(m_path);
    return status && status->kind == FileKind::Missing;
  }

  void Drop() {
    if (!m_tookPlace) static_cast<void>(m_files.Remove(m_path));
    m_files.Close(*m_file);
    m_file.reset();
  }

  FileSystem& m_files;
  std::string m_path;
  std::optional<FileSystem::Handle> m_file;
  bool m_tookPlace = false;
};

enum class ReplaceEnd { Replaced, Failed, NotPossible };

struct NewContent {
  std::span<const std::uint8_t> bytes;
  Surplus surplus;
  std::uint32_t newFileMode;
};

ReplaceEnd ReplaceByNew(FileSystem& files, const PlacedFile& target, const NewContent& content) {
  const auto& [bytes, surplus, newFileMode] = content;
  const auto& [path, old] = target;
  const bool isNew = old.kind == FileKind::Missing;
  Temporary temporary(files, FolderOf(path), isNew ? newFileMode : PrivateMode);
  if (!temporary.IsOpen() || (!isNew && !temporary.TakeOver(old))) return ReplaceEnd::NotPossible;
  const bool hasSurplus = !isNew && surplus == Surplus::Keep && old.size > bytes.size();
  if (!temporary.Write(bytes) || (hasSurplus && !temporary.WriteSurplus(path, bytes.size())) || !temporary.Sync())
    return ReplaceEnd::Failed;
  return temporary.TakePlace(path) ? ReplaceEnd::Replaced : ReplaceEnd::NotPossible;
}

bool WriteInPlace(FileSystem& files, const PlacedFile& target, const NewContent& content) {
  const auto& [bytes, surplus, newFileMode] = content;
  const auto file = files.OpenToWrite(target.path, newFileMode);
  if (!file) return false;
  const bool isWritten = WriteAll(files, *file, bytes) &&
                         (surplus == Surplus::Keep || files.SetSize(*file, bytes.size())) && files.Sync(*file);
  files.Close(*file);
  if (!isWritten && target.status.kind == FileKind::Missing) static_cast<void>(files.Remove(target.path));
  return isWritten;
}

} // namespace

std::string FolderOf(const std::string& path) {
  const auto slash = path.find_last_of(Separators);
  if (slash == std::string::npos) return ".";
  return path.substr(0, IsRoot(std::string_view(path).substr(0, slash + 1)) ? slash + 1 : slash);
}

ReadOutcome ReadFile(FileSystem& files, const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes) {
  bytes.clear();
  const auto found = FollowLinks(files, path);
  if (path.empty() || (found && found->status.kind == FileKind::Missing)) return ReadOutcome::Missing;
  if (!found) return ReadOutcome::Failed;
  if (found->status.kind != FileKind::Regular) {
    errno = ReasonAgainst(found->status.kind);
    return ReadOutcome::Failed;
  }
  const auto file = files.OpenToRead(found->path);
  if (!file) return ReadOutcome::Failed;
  // One byte more than the reported size finds the end, or shows that the file has grown.
  bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(found->status.size + 1, limit)));
  std::size_t filled = 0;
  std::optional<std::size_t> count = 1;
  while (count && *count > 0 && filled < bytes.size()) {
    count = files.ReadAt(*file, filled, std::span(bytes).subspan(filled));
    filled += count.value_or(0);
    if (filled == bytes.size()) bytes.resize(std::min(limit, 2 * filled));
  }
  files.Close(*file);
  bytes.resize(filled);
  return count ? ReadOutcome::Read : ReadOutcome::Failed;
}

bool ReplaceFile(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes, Surplus surplus,
                 std::uint32_t newFileMode) {
  const auto target = FollowLinks(files, path);
  if (!target) return false;
  if (IsRefused(files, *target)) return false;
  const std::string folder = FolderOf(target->path);
  RemoveLeftovers(files, folder);
  const NewContent content{bytes, surplus, newFileMode};
  const ReplaceEnd end = ReplaceByNew(files, *target, content);
  if (end == ReplaceEnd::NotPossible) return WriteInPlace(files, *target, content);
  if (end == ReplaceEnd::Failed) return false;
  // The new file is in place and on the disk. If this fails, a power cut can at worst bring back the complete old file,
  // which is no reason to report a failed save.
  static_cast<void>(files.SyncFolder(folder));
  return true;
}

bool MayReplace(FileSystem& files, const std::string& path) {
  const auto target = FollowLinks(files, path);
  if (!target || IsRefused(files, *target)) return false;
  return target->status.kind != FileKind::Missing || files.CanWrite(FolderOf(target->path));
}

bool IsMissing(FileSystem& files, const std::string& path) {
  const auto found = FollowLinks(files, path);
  return path.empty() || (found && found->status.kind == FileKind::Missing);
}

bool IsSameFile(FileSystem& files, const std::string& a, const std::string& b) {
  const auto first = FollowLinks(files, a), second = FollowLinks(files, b);
  return first && second && first->status.kind != FileKind::Missing && first->status.device == second->status.device &&
         first->status.number == second->status.number;
}

bool LeadsToOtherUser(FileSystem& files, const std::string& path) {
  const auto link = files.Status(path);
  const auto target = FollowLinks(files, path);
  return link && target && target->status.kind != FileKind::Missing && target->status.owner != link->owner;
}

std::optional<std::uint64_t> DeviceOfFolder(FileSystem& files, const std::string& path) {
  const auto file = FollowLinks(files, path);
  const auto folder = file ? FollowLinks(files, FolderOf(file->path)) : std::nullopt;
  return folder && folder->status.kind == FileKind::Folder ? std::optional(folder->status.device) : std::nullopt;
}

bool MakeFolderOf(FileSystem& files, const std::string& path) {
  const std::string folder = FolderOf(path);
  const auto exists = [&] {
    const auto status = files.Status(folder);
    return status && status->kind != FileKind::Missing;
  };
  if (exists()) return true;
  if (!files.Status(folder) || !MakeFolderOf(files, folder)) return false;
  return files.MakeFolder(folder) || exists(); // another program may have made it just now
}

} // namespace mr4500x
