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
constexpr int MostTemporaries = 100; // tries; other saves may remove a file before it is locked
constexpr std::size_t HashedBytes = std::size_t{1} << 24;
constexpr std::size_t CopyBytes = 16384;
constexpr std::uint32_t PrivateMode = 0600; // used until the temporary file has the old file's owner
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

FileResult Failed(std::errc reason) {
  return {std::make_error_code(reason)};
}

// The file that a path leads to. It may be missing.
struct TargetFile {
  FileResult result;
  std::string path;
  FileStatus status;
};

TargetFile FollowLinks(FileSystem& files, std::string path) {
  if (path.empty() || path.find('\0') != std::string::npos)
    return {Failed(std::errc::no_such_file_or_directory), "", {}};
  for (int links = 0; links <= MostLinks; ++links) {
    const auto status = files.Status(path);
    if (!status) return {SystemFailed(), "", {}};
    if (status->kind != FileKind::Link) return {{}, std::move(path), *status};
    const auto target = files.ReadLink(path);
    if (!target) return {SystemFailed(), "", {}};
    path = IsAbsolute(*target) ? *target : InFolder(FolderOf(path), *target);
  }
  return {Failed(std::errc::too_many_symbolic_link_levels), "", {}};
}

// A file exists, but it is not one to be read or written.
FileResult RefusedKind(FileKind kind) {
  return Failed(kind == FileKind::Regular  ? std::errc::permission_denied
                : kind == FileKind::Folder ? std::errc::is_a_directory
                                           : std::errc::operation_not_supported);
}

FileResult MayBeWritten(FileSystem& files, const TargetFile& target) {
  const auto& [result, path, old] = target;
  if (!result || old.kind == FileKind::Missing) return result;
  if (old.kind != FileKind::Regular || (old.mode & WriteBits) == 0) return RefusedKind(old.kind);
  return files.CanWrite(path) ? FileResult{} : SystemFailed();
}

FileResult MayCreateIn(FileSystem& files, const std::string& folder) {
  const TargetFile target = FollowLinks(files, folder);
  const bool isOther = target.status.kind != FileKind::Folder && target.status.kind != FileKind::Missing;
  if (!target.result || isOther) return isOther ? Failed(std::errc::not_a_directory) : target.result;
  return files.CanWrite(folder) ? FileResult{} : SystemFailed(); // also if it is missing
}

void RemoveLeftovers(FileSystem& files, const std::string& folder) {
  for (const std::string& name : files.List(folder).value_or(std::vector<std::string>{})) {
    if (!IsTemporaryName(name)) continue;
    const std::string path = InFolder(folder, name);
    const auto status = files.Status(path);
    if (!status || status->kind != FileKind::Regular) continue;
    const OpenFile file(files, files.OpenToRead(path));
    if (file && files.Lock(*file) == LockOutcome::Taken)
      static_cast<void>(files.Remove(path)); // if this fails, a later save removes it
  }
}

FileResult WriteAll(FileSystem& files, FileSystem::Handle file, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const auto count = files.Write(file, bytes);
    if (!count || *count == 0) return SystemFailed();
    bytes = bytes.subspan(*count);
  }
  return {};
}

// The new file. Removed again unless ReplaceFileAt succeeded.
class Temporary {
public:
  Temporary(FileSystem& files, const std::string& folder, std::uint32_t mode) : m_files(files) {
    for (int tries = 0; tries < MostTemporaries && !m_file; ++tries) {
      m_path = InFolder(folder, std::string(TemporaryPrefix) + HexText(files.UnpredictableNumber()));
      m_file = {files, files.Create(m_path, mode)};
      if (!m_file) return;
      if (IsTakenForLeftover()) Drop();
    }
  }
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  ~Temporary() {
    if (m_file) Drop();
  }

  [[nodiscard]] bool IsOpen() const { return static_cast<bool>(m_file); }

  FileResult Write(std::span<const std::uint8_t> bytes) { return WriteAll(m_files, *m_file, bytes); }

  // Appends the old file's bytes from `offset`.
  FileResult WriteSurplus(const std::string& oldPath, std::uint64_t offset) {
    const OpenFile old(m_files, m_files.OpenToRead(oldPath));
    if (!old) return SystemFailed();
    std::array<std::uint8_t, CopyBytes> buffer{};
    for (;;) {
      const auto count = m_files.ReadAt(*old, offset, buffer);
      if (!count) return SystemFailed();
      if (*count == 0) return {};
      if (const FileResult written = Write(std::span(buffer).first(*count)); !written) return written;
      offset += *count;
    }
  }

  [[nodiscard]] bool TakeOver(const FileStatus& old) {
    // Only root can give a file to another user. Otherwise keep at least the group.
    if (!m_files.SetOwner(*m_file, old.owner, old.group)) static_cast<void>(m_files.SetGroup(*m_file, old.group));
    return m_files.SetMode(*m_file, old.mode & PermissionBits);
  }

  FileResult Sync() { return m_files.Sync(*m_file) ? FileResult{} : SystemFailed(); }
  [[nodiscard]] bool ReplaceFileAt(const std::string& path) {
    m_hasReplaced = m_files.Rename(m_path, path);
    return m_hasReplaced;
  }

private:
  // Before the file is locked, another save may mistake it for a leftover, lock it and remove it. A file system without
  // locks does not prevent the save, because no other save can lock and remove this file either.
  [[nodiscard]] bool IsTakenForLeftover() {
    if (m_files.Lock(*m_file) == LockOutcome::HeldByOther) return true;
    const auto status = m_files.Status(m_path);
    return status && status->kind == FileKind::Missing;
  }

  void Drop() {
    if (!m_hasReplaced) static_cast<void>(m_files.Remove(m_path));
    m_file.Close();
  }

  FileSystem& m_files;
  std::string m_path;
  OpenFile m_file;
  bool m_hasReplaced = false;
};

struct NewContent {
  std::span<const std::uint8_t> bytes;
  Surplus surplus;
  std::uint32_t newFileMode;
};

// nullopt if no new file can replace the old one.
std::optional<FileResult> ReplaceByNew(FileSystem& files, const TargetFile& target, const NewContent& content) {
  const auto& [bytes, surplus, newFileMode] = content;
  const auto& [result, path, old] = target;
  const bool isNew = old.kind == FileKind::Missing;
  Temporary temporary(files, FolderOf(path), isNew ? newFileMode : PrivateMode);
  if (!temporary.IsOpen() || (!isNew && !temporary.TakeOver(old))) return std::nullopt;
  const bool hasSurplus = surplus == Surplus::Keep && old.size > bytes.size();
  FileResult written = temporary.Write(bytes);
  if (written && hasSurplus) written = temporary.WriteSurplus(path, bytes.size());
  if (written) written = temporary.Sync();
  if (!written || temporary.ReplaceFileAt(path)) return written;
  if (errno == ETXTBSY) return SystemFailed(); // open in another program, which would see a partial file
  return std::nullopt;
}

FileResult WriteInPlace(FileSystem& files, const TargetFile& target, const NewContent& content) {
  const auto& [bytes, surplus, newFileMode] = content;
  OpenFile file(files, files.OpenToWrite(target.path, newFileMode));
  if (!file) return SystemFailed();
  FileResult written = WriteAll(files, *file, bytes);
  if (written && !((surplus == Surplus::Keep || files.SetSize(*file, bytes.size())) && files.Sync(*file)))
    written = SystemFailed();
  file.Close();
  if (!written && target.status.kind == FileKind::Missing) static_cast<void>(files.Remove(target.path));
  return written;
}

} // namespace

std::string FolderOf(const std::string& path) {
  const auto slash = path.find_last_of(Separators);
  if (slash == std::string::npos) return ".";
  return path.substr(0, IsRoot(std::string_view(path).substr(0, slash + 1)) ? slash + 1 : slash);
}

ReadResult ReadFile(FileSystem& files, const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes) {
  using enum ReadOutcome;
  bytes.clear();
  const auto [result, target, status] = FollowLinks(files, path);
  if (path.empty() || (result && status.kind == FileKind::Missing))
    return {Missing, mr4500x::Failed(std::errc::no_such_file_or_directory)};
  if (!result) return {Failed, result};
  if (status.kind != FileKind::Regular) return {Failed, RefusedKind(status.kind)};
  const OpenFile file(files, files.OpenToRead(target));
  if (!file) return {Failed, SystemFailed()};
  // One byte more than the reported size finds the end, or shows that the file has grown.
  bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(status.size + 1, limit)));
  std::size_t filled = 0;
  std::optional<std::size_t> count = 1;
  while (count && *count > 0) { // 0 also at the limit
    count = files.ReadAt(*file, filled, std::span(bytes).subspan(filled));
    filled += count.value_or(0);
    if (filled == bytes.size()) bytes.resize(std::min(limit, 2 * filled));
  }
  bytes.resize(filled);
  return count ? ReadResult{Read, {}} : ReadResult{Failed, SystemFailed()};
}

FileResult ReplaceFile(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes, Surplus surplus,
                       std::uint32_t newFileMode) {
  const TargetFile target = FollowLinks(files, path);
  if (const FileResult mayBeWritten = MayBeWritten(files, target); !mayBeWritten) return mayBeWritten;
  const std::string folder = FolderOf(target.path);
  RemoveLeftovers(files, folder);
  const NewContent content{bytes, surplus, newFileMode};
  const std::optional<FileResult> replaced = ReplaceByNew(files, target, content);
  if (!replaced) return WriteInPlace(files, target, content);
  // The new file is in place and on the disk. If this fails, a power cut can at worst bring back the complete old file,
  // so the save does not have to be reported as failed.
  if (*replaced) static_cast<void>(files.SyncFolder(folder));
  return *replaced;
}

FileResult WriteInto(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes) {
  if (const auto open = OpenFileNamed(path)) return WriteAll(files, *open, bytes);
  const OpenFile stream(files, files.OpenToWrite(FollowLinks(files, path).path, 0666));
  return stream ? WriteAll(files, *stream, bytes) : SystemFailed();
}

FileResult MayReplace(FileSystem& files, const std::string& path) {
  const TargetFile target = FollowLinks(files, path);
  const FileResult mayBeWritten = MayBeWritten(files, target);
  const bool isNew = mayBeWritten && target.status.kind == FileKind::Missing;
  return isNew ? MayCreateIn(files, FolderOf(target.path)) : mayBeWritten;
}

FileResult MayStoreIn(FileSystem& files, const std::string& folder) {
  const auto status = files.Status(folder); // a folder can't be created at a link that leads nowhere
  const bool isMissing = status && status->kind == FileKind::Missing && FolderOf(folder) != folder;
  return isMissing ? MayStoreIn(files, FolderOf(folder)) : MayCreateIn(files, folder);
}

bool IsMissing(FileSystem& files, const std::string& path) {
  const TargetFile found = FollowLinks(files, path);
  return path.empty() || (found.result && found.status.kind == FileKind::Missing);
}

bool IsThere(FileSystem& files, const std::string& path) {
  const TargetFile found = FollowLinks(files, path);
  return found.result && found.status.kind != FileKind::Missing;
}

std::optional<std::size_t> ContentHash(FileSystem& files, const std::string& path) {
  std::vector<std::uint8_t> bytes;
  if (ReadFile(files, path, HashedBytes, bytes) != ReadOutcome::Read) return std::nullopt;
  return std::hash<std::string_view>()({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::optional<OpenFile> LockForChange(FileSystem& files, const std::string& path, const std::function<bool()>& wait) {
  for (;;) {
    const TargetFile target = FollowLinks(files, path);
    if (!target.result || target.status.kind != FileKind::Regular) return OpenFile();
    std::optional<FileSystem::Handle> handle;
    const LockOutcome outcome = files.LockToReplace(target.path, handle);
    OpenFile lock(files, handle);
    if (outcome == LockOutcome::NotPossible) return OpenFile();
    if (outcome == LockOutcome::HeldByOther) {
      if (!wait()) return std::nullopt;
      continue;
    }
    const auto now = files.Status(target.path); // the previous holder of the lock has replaced the file
    if (now && now->device == target.status.device && now->number == target.status.number) return lock;
  }
}

bool IsSameFile(FileSystem& files, const std::string& a, const std::string& b) {
  const TargetFile first = FollowLinks(files, a), second = FollowLinks(files, b);
  if (!first.result || !second.result || first.status.kind != second.status.kind) return false;
  if (first.status.kind != FileKind::Missing)
    return first.status.device == second.status.device && first.status.number == second.status.number;
  const auto nameOf = [](const TargetFile& file) { return file.path.substr(file.path.find_last_of(Separators) + 1); };
  return nameOf(first) == nameOf(second) && IsSameFile(files, FolderOf(first.path), FolderOf(second.path));
}

bool LeadsToOtherUser(FileSystem& files, const std::string& path) {
  const auto link = files.Status(path);
  const TargetFile target = FollowLinks(files, path);
  return link && target.result && target.status.kind != FileKind::Missing && target.status.owner != link->owner;
}

std::optional<std::uint64_t> DeviceOfFolder(FileSystem& files, const std::string& path) {
  const TargetFile file = FollowLinks(files, path);
  if (!file.result) return std::nullopt;
  const TargetFile folder = FollowLinks(files, FolderOf(file.path));
  return folder.result && folder.status.kind == FileKind::Folder ? std::optional(folder.status.device) : std::nullopt;
}

FileResult MakeFolderOf(FileSystem& files, const std::string& path) {
  const std::string folder = FolderOf(path);
  const auto exists = [&] {
    const auto status = files.Status(folder);
    return status && status->kind != FileKind::Missing;
  };
  if (exists()) return {};
  if (!files.Status(folder)) return SystemFailed();
  if (const FileResult parents = MakeFolderOf(files, folder); !parents) return parents;
  if (files.MakeFolder(folder)) return {};
  const FileResult failed = SystemFailed();
  return exists() ? FileResult{} : failed; // another program may have just created it
}

} // namespace mr4500x
