// Reading a whole file, and replacing one so that its path holds either the complete old or the complete new content.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "open_file.h"

namespace mr4500x {

enum class ReadOutcome { Read, Missing, Failed };
struct [[nodiscard]] ReadResult {
  ReadOutcome outcome;
  FileResult result; // has the reason if it failed

  operator ReadOutcome() const { return outcome; } // NOLINT(google-explicit-constructor): most callers ask only that
};

// Reads at most `limit` bytes of a regular file, or of one that a link leads to.
ReadResult ReadFile(FileSystem& files, const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes);

// What happens to the old file's bytes beyond the new length.
enum class Surplus { Drop, Keep };

// Creates or replaces the file at the path:
//  1. Follows links, even to a missing file: the target is the file to write.
//  2. Refuses anything but a missing file or a regular file that may be written. A file without any write permission
//     was protected on purpose and is refused even to root.
//  3. Removes temporary files that a killed save left in the folder. A running save holds a lock on its own; if another
//     save was quicker than that lock, it makes another.
//  4. Writes a temporary file in the same folder, gives it the old file's owner (if allowed) and permissions, and
//     flushes it to the disk.
//  5. Renames it over the old file and flushes the folder.
// If no file can be created or renamed in the folder, or its permissions can't be set, the file itself is overwritten
// from its start. If anything else fails, the old file is unchanged. No temporary file is left behind. A new file gets
// the mode, less the umask.
FileResult ReplaceFile(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes, Surplus surplus,
                       std::uint32_t newFileMode = 0666);

// Writes into a pipe, a device or an open file, as OpenFileNamed has it. Does not wait for the reader of a pipe.
FileResult WriteInto(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes);

// Whether ReplaceFile would try to write: the file is one that it does not refuse, or can be created in its folder.
FileResult MayReplace(FileSystem& files, const std::string& path);

// Whether files can be created in the folder, or the folder itself if it is missing. Creates nothing.
FileResult MayStoreIn(FileSystem& files, const std::string& folder);

// Whether there is nothing at the path, or where its links lead.
[[nodiscard]] bool IsMissing(FileSystem& files, const std::string& path);

// Whether something is at the path. False also for a path that can't be searched.
[[nodiscard]] bool IsThere(FileSystem& files, const std::string& path);

// A checksum of the content, to detect that another program has changed the file. nullopt if the file can't be read.
[[nodiscard]] std::optional<std::size_t> ContentHash(FileSystem& files, const std::string& path);

// Locks the file at the path, from reading it to replacing it, against other users of this lock. Returns an empty lock
// if there is no file or the file system has no locks. `wait` is called while another process holds the lock; nullopt
// if it returns false.
[[nodiscard]] std::optional<OpenFile> LockForChange(FileSystem& files, const std::string& path,
                                                    const std::function<bool()>& wait);

// Whether two paths lead to one file, even if it does not exist yet.
[[nodiscard]] bool IsSameFile(FileSystem& files, const std::string& a, const std::string& b);

// Whether the path is a link to a file of another user than the link's.
[[nodiscard]] bool LeadsToOtherUser(FileSystem& files, const std::string& path);

// Identifies the file system of the path's folder, following links. It changes when a drive is unplugged.
[[nodiscard]] std::optional<std::uint64_t> DeviceOfFolder(FileSystem& files, const std::string& path);

// "." for a bare name.
[[nodiscard]] std::string FolderOf(const std::string& path);

// Creates the folder of a path and its parents if they are missing.
FileResult MakeFolderOf(FileSystem& files, const std::string& path);

} // namespace mr4500x
