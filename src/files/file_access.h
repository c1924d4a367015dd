// Whole files: reading one, and replacing one so that its path never holds anything but the complete old or the
// complete new content. What the content means is left to the callers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "file_system.h"

namespace mr4500x {

enum class ReadOutcome { Read, Missing, Failed };

// The file's first bytes, `limit` at most. Only a regular file, or a link to one, is read.
[[nodiscard]] ReadOutcome ReadFile(FileSystem& files, const std::string& path, std::size_t limit,
                                   std::vector<std::uint8_t>& bytes);

// What becomes of an old file's bytes beyond the new length.
enum class Surplus { Drop, Keep };

// Creates or replaces the file at the path. The way:
//  1. A link is followed, also one that leads nowhere yet: its target is the file.
//  2. Refused unless the file is missing or a regular file that may be written. One without any write permission is
//     refused to everyone: it was protected on purpose.
//  3. Temporaries that a killed save left in the folder are removed. A save holds the lock of its own as long as it
//     lives, so an unlocked one is nobody's any more.
//  4. The new content goes to a new file in the same folder, which gets the owner, where that can be, and the
//     permissions of the old one, and is flushed to the disk.
//  5. It is renamed over the old file in one step, and the folder is flushed.
// When anything up to the renaming fails the answer is false, the old file is as it was and no temporary stays.
[[nodiscard]] bool ReplaceFile(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes,
                               Surplus surplus);

// The folder in which the path lies, "." for a name alone.
[[nodiscard]] std::string FolderOf(const std::string& path);

// Creates the folder in which the path lies, and those above it, as far as they are missing.
[[nodiscard]] bool MakeFolderOf(FileSystem& files, const std::string& path);

} // namespace mr4500x
