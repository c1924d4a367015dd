#include "machine_files.h"

#include "conventions.h"
#include "machine.h"
#include "text.h"
#include "wide_text.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <random>
#include <system_error>

#include <windows.h>

namespace mr4500x {
namespace {

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::uint32_t ReadOnlyMode = 0444, WritableMode = 0666, WriteBits = 0222;
constexpr std::uint32_t FolderMode = 0777;
constexpr std::size_t MostBytesAtOnce = 1U << 30U;
constexpr DWORD LockedOffset = 0x7FFFFFFF; // times 4 GiB; locks are mandatory, so the byte is beyond all data

// How often and how long a call is retried while another program has the file open.
constexpr int Tries = 10;
constexpr DWORD TryMilliseconds = 20;

constexpr std::uint64_t TicksPerSecond = 10'000'000, SecondsTo1970 = 11'644'473'600; // of a file's time, from 1601

std::uint64_t Joined(DWORD high, DWORD low) {
  return static_cast<std::uint64_t>(high) << 32U | low;
}

HANDLE NativeOf(FileSystem::Handle file) {
  return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(file)); // only 32 bits of a handle count
}

bool IsOpenElsewhere(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE;
}

// Sets errno to the reason of the last failure.
bool Fail() {
  const DWORD error = GetLastError();
  const std::error_condition reason = std::system_category().default_error_condition(static_cast<int>(error));
  const bool hasReason = reason.category() == std::generic_category();
  errno = IsOpenElsewhere(error) ? ETXTBSY : hasReason ? reason.value() : EIO;
  return false;
}

bool Done(BOOL result) {
  return result != FALSE || Fail();
}

bool IsMissing(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
         error == ERROR_BAD_NETPATH || error == ERROR_BAD_NET_NAME;
}

// "file:stream" is a hidden part of a file, which is not shown in its folder and gets lost in copies. "C:" is a drive.
bool IsStream(std::string_view path) {
  const std::size_t name = path.find_last_of(Separators) + 1; // 0 without a folder
  const std::size_t colon = path.find(':', name);
  const bool isDrive = colon == name + 1 && (name == 0 || colon + 1 == path.size());
  return path.find(':', isDrive ? colon + 1 : name) != std::string_view::npos;
}

// A mounted folder is also a link. Other reparse points, such as files in a cloud, are files.
bool IsLink(const std::wstring& path, DWORD attributes) {
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return found.dwReserved0 == IO_REPARSE_TAG_SYMLINK || found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT;
}

HANDLE OpenNative(const std::wstring& path, DWORD access, DWORD disposition, DWORD flags = FILE_ATTRIBUTE_NORMAL) {
  return CreateFileW(path.c_str(), access, ShareAll, nullptr, disposition, flags, nullptr);
}

// Leaves out devices, such as NUL and COM1.
std::optional<FileSystem::Handle> Opened(HANDLE file) {
  if (file == INVALID_HANDLE_VALUE) return Fail(), std::nullopt;
  if (GetFileType(file) == FILE_TYPE_DISK)
    return static_cast<FileSystem::Handle>(reinterpret_cast<std::intptr_t>(file));
  CloseHandle(file);
  errno = EINVAL;
  return std::nullopt;
}

std::optional<FileSystem::Handle> OpenExisting(const std::string& path, DWORD access, DWORD disposition) {
  const std::wstring wide = WidePath(path);
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && IsLink(wide, attributes)) {
    errno = ELOOP;
    return std::nullopt;
  }
  return Opened(OpenNative(wide, access, disposition));
}

template<typename Call>
bool WithTries(Call call) {
  for (int tries = 1; call() == FALSE; ++tries) {
    const DWORD error = GetLastError();
    // Files that are being deleted or scanned refuse access.
    if (tries == Tries || (!IsOpenElsewhere(error) && error != ERROR_ACCESS_DENIED)) return Fail();
    Sleep(TryMilliseconds);
  }
  return true;
}

// Files are opened so that others may read, rename and remove them, as on other systems. A file that another program
// has opened without these rights can't be replaced. The calls then fail after a few tries, because virus scanners hold
// new files for a moment. There are no owners and groups, and the only permission is the read-only attribute.
class WindowsFileSystem final : public FileSystem {
public:
  std::optional<FileStatus> Status(const std::string& path) override {
    if (IsStream(path)) {
      errno = EINVAL;
      return std::nullopt;
    }
    const std::wstring wide = WidePath(path);
    const HANDLE file = OpenNative(wide, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT);
    if (file == INVALID_HANDLE_VALUE) {
      if (IsMissing(GetLastError())) return FileStatus{};
      return Fail(), std::nullopt;
    }
    FileStatus status;
    BY_HANDLE_FILE_INFORMATION found{};
    if (GetFileType(file) != FILE_TYPE_DISK || GetFileInformationByHandle(file, &found) == FALSE) {
      status.kind = FileKind::Other; // a device, such as NUL
    } else {
      const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
      const bool isReadOnly = (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
      status.kind = isFolder ? FileKind::Folder : FileKind::Regular;
      if (IsLink(wide, found.dwFileAttributes)) status.kind = FileKind::Link;
      status.mode = isFolder ? FolderMode : isReadOnly ? ReadOnlyMode : WritableMode;
      status.size = Joined(found.nFileSizeHigh, found.nFileSizeLow);
      status.device = found.dwVolumeSerialNumber;
      status.number = Joined(found.nFileIndexHigh, found.nFileIndexLow);
      const auto ticks = Joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
      status.changed = LocalTimeOf(static_cast<std::time_t>(ticks / TicksPerSecond - SecondsTo1970));
    }
    CloseHandle(file);
    return status;
  }

  // The final target of all links.
  std::optional<std::string> ReadLink(const std::string& path) override {
    const HANDLE file = OpenNative(WidePath(path), 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (file == INVALID_HANDLE_VALUE) return Fail(), std::nullopt;
    std::wstring target(GetFinalPathNameByHandleW(file, nullptr, 0, 0), L'\0');
    target.resize(GetFinalPathNameByHandleW(file, target.data(), static_cast<DWORD>(target.size()), 0));
    CloseHandle(file);
    if (target.empty()) return Fail(), std::nullopt;
    return PlainPath(target);
  }

  // Tries to open the file, because the result of the access rules is hard to predict.
  bool CanWrite(const std::string& path) override {
    const std::wstring wide = WidePath(path);
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return Fail();
    HANDLE file = INVALID_HANDLE_VALUE;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
      file = OpenNative(wide, GENERIC_WRITE, OPEN_EXISTING);
    else
      file = OpenNative(wide + LR"(\.mr4500x-)" + std::to_wstring(UnpredictableNumber()), GENERIC_WRITE | DELETE,
                        CREATE_NEW, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE);
    if (file == INVALID_HANDLE_VALUE) return Fail();
    CloseHandle(file);
    return true;
  }

  std::optional<std::vector<std::string>> List(const std::string& folder) override {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((WidePath(folder) + LR"(\*)").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return Fail(), std::nullopt;
    std::vector<std::string> names;
    do
      names.push_back(Narrow(found.cFileName));
    while (FindNextFileW(search, &found) != FALSE);
    FindClose(search);
    return names;
  }

  bool MakeFolder(const std::string& folder) override {
    return Done(CreateDirectoryW(WidePath(folder).c_str(), nullptr));
  }

  std::optional<FileSystem::Handle> OpenToRead(const std::string& path) override {
    return OpenExisting(path, GENERIC_READ, OPEN_EXISTING);
  }
  std::optional<FileSystem::Handle> Create(const std::string& path, std::uint32_t) override {
    return Opened(OpenNative(WidePath(path), GENERIC_WRITE | DELETE, CREATE_NEW));
  }
  std::optional<FileSystem::Handle> OpenToWrite(const std::string& path, std::uint32_t) override {
    return OpenExisting(path, GENERIC_WRITE, OPEN_ALWAYS);
  }
  void Close(Handle file) override { CloseHandle(NativeOf(file)); }

  LockOutcome Lock(Handle file) override {
    OVERLAPPED at{};
    at.OffsetHigh = LockedOffset;
    if (LockFileEx(NativeOf(file), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &at) != FALSE)
      return LockOutcome::Taken;
    const DWORD error = GetLastError();
    Fail();
    return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ? LockOutcome::HeldByOther
                                                                      : LockOutcome::NotPossible;
  }

  // An open file can't be replaced on every file system, so the lock is a file beside it, named after the file's
  // identity. It can be opened only once, and is deleted when it is closed.
  LockOutcome LockToReplace(const std::string& path, std::optional<Handle>& lock) override {
    const auto status = Status(path);
    if (!status) return LockOutcome::NotPossible;
    const std::size_t name = path.find_last_of(Separators) + 1; // 0 without a folder
    const std::wstring beside = WidePath(path.substr(0, name) + ".mr4500x-lock-" + HexText(status->number));
    HANDLE file = INVALID_HANDLE_VALUE;
    const bool isTaken = WithTries([&] {
      file = CreateFileW(beside.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                         FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
      return file != INVALID_HANDLE_VALUE ? TRUE : FALSE;
    });
    if (!isTaken) return errno == ETXTBSY ? LockOutcome::HeldByOther : LockOutcome::NotPossible;
    lock = Opened(file);
    return lock ? LockOutcome::Taken : LockOutcome::NotPossible;
  }

  std::optional<std::size_t> ReadAt(Handle file, std::uint64_t offset, std::span<std::uint8_t> bytes) override {
    OVERLAPPED at{};
    at.Offset = static_cast<DWORD>(offset);
    at.OffsetHigh = static_cast<DWORD>(offset >> 32U);
    DWORD count = 0;
    const auto most = static_cast<DWORD>(std::min(bytes.size(), MostBytesAtOnce));
    if (::ReadFile(NativeOf(file), bytes.data(), most, &count, &at) != FALSE || GetLastError() == ERROR_HANDLE_EOF)
      return count;
    return Fail(), std::nullopt;
  }

  std::optional<std::size_t> Write(Handle file, std::span<const std::uint8_t> bytes) override {
    DWORD count = 0;
    const auto most = static_cast<DWORD>(std::min(bytes.size(), MostBytesAtOnce));
    if (WriteFile(NativeOf(file), bytes.data(), most, &count, nullptr) != FALSE && count > 0) return count;
    return Fail(), std::nullopt;
  }

  bool SetOwner(Handle, std::uint32_t, std::uint32_t) override { return true; }
  bool SetGroup(Handle, std::uint32_t) override { return true; }
  // Only writable files are replaced, and new files are writable.
  bool SetMode(Handle, std::uint32_t mode) override { return (mode & WriteBits) != 0; }
  bool SetSize(Handle file, std::uint64_t size) override {
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    return Done(SetFileInformationByHandle(NativeOf(file), FileEndOfFileInfo, &end, sizeof end));
  }
  bool Sync(Handle file) override { return Done(FlushFileBuffers(NativeOf(file))); }

  bool Rename(const std::string& from, const std::string& to) override {
    const std::wstring source = WidePath(from), target = WidePath(to);
    const bool renamed = WithTries([&] {
      return MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    });
    if (renamed) return true;
    // An open target refuses access like a protected one. They differ only when opened exclusively.
    const int reason = errno;
    const HANDLE alone = CreateFileW(target.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    errno = alone == INVALID_HANDLE_VALUE && IsOpenElsewhere(GetLastError()) ? ETXTBSY : reason;
    if (alone != INVALID_HANDLE_VALUE) CloseHandle(alone);
    return false;
  }

  bool Remove(const std::string& path) override {
    const std::wstring wide = WidePath(path);
    return WithTries([&] { return DeleteFileW(wide.c_str()); });
  }

  // A rename is written to the disk at once.
  bool SyncFolder(const std::string&) override { return true; }

  std::uint64_t UnpredictableNumber() override {
    std::random_device device; // the processor's or the system's generator
    return (static_cast<std::uint64_t>(device()) << 32U) | device();
  }
};

} // namespace

FileSystem& MachineFiles() {
  static WindowsFileSystem files;
  return files;
}

} // namespace mr4500x
