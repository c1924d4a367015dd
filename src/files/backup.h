// What a radio holds, kept in files before it is written.
#pragma once

#include "open_file.h"
#include "radio_image.h"

#include <string>

namespace mr4500x {

// A path with its {id}, {date} and {time} filled in: "20261104" and "090507". Of the identity number only ASCII
// letters, digits and "-" stay, all else becomes "_", so that no radio chooses a folder.
[[nodiscard]] std::string FilledIn(std::string path, const RadioImage& image, const LocalTime& now);

// Makes the folder if it is missing. Fails if no backup can be kept in it.
FileResult MayKeepBackupIn(FileSystem& files, const std::string& folder);

enum class BackupOutcome : std::uint8_t {
  Kept,
  Failed,
  NameIsTaken, // nothing is replaced
};
struct Backup {
  BackupOutcome outcome;
  std::string path;  // of the data file
  FileResult result; // with the reason unless it was kept
};
// A data file named after the radio and the time, and beside it the embedded text if there is one, as ".txt".
[[nodiscard]] Backup KeepBackup(FileSystem& files, const std::string& folder, const RadioImage& image,
                                const LocalTime& now);

} // namespace mr4500x
