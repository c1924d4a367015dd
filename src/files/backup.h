// Backups of a radio's configuration before a write.
#pragma once

#include "open_file.h"
#include "radio_image.h"

#include <string>

namespace mr4500x {

// A path with its {id}, {date} and {time} filled in: "20261104" and "090507". In the identity number everything except
// ASCII letters, digits and "-" becomes "_", so that a radio can't select a folder.
[[nodiscard]] std::string FilledIn(std::string path, const RadioImage& image, const LocalTime& now);

struct Backup {
  std::string path; // path of the data file
  FileResult result;
};
// Saves a data file named after the radio and the time. If there is an embedded text, it is saved beside it as ".txt".
// Creates the folder if it is missing. Replaces no file: "_2" follows a name that exists.
[[nodiscard]] Backup KeepBackup(FileSystem& files, const std::string& folder, const RadioImage& image,
                                const LocalTime& now);

} // namespace mr4500x
