#include "backup.h"

#include "conventions.h"
#include "data_file.h"
#include "embedded_info.h"
#include "file_access.h"
#include "function_settings.h"
#include "text.h"

#include <algorithm>
#include <functional>

namespace mr4500x {
namespace {

void Replace(std::string& text, std::string_view what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
}

// Creates an empty file of that name, with "_2", "_3" … after the stem where another backup has the name: radios of the
// same identity number are backed up at the same moment by other ports and other programs.
FileResult ReserveName(FileSystem& files, std::string& stem, const std::string& extension) {
  const std::string first = stem;
  for (int number = 2;; ++number) {
    if (OpenFile(files, files.Create(stem + extension, 0666))) return {};
    const FileResult failed = SystemFailed();
    if (failed.error != std::errc::file_exists) return failed;
    stem = first + '_' + std::to_string(number);
  }
}

} // namespace

std::string FilledIn(std::string path, const RadioImage& image, const LocalTime& now) {
  std::string id = IdentityNumber(image), digits = TimestampText(now);
  const auto isPlain = [](char c) { return (Lower(c) >= 'a' && Lower(c) <= 'z') || IsDigit(c) || c == '-'; };
  std::ranges::replace_if(id, std::not_fn(isPlain), '_');
  std::erase_if(digits, [](char c) { return !IsDigit(c); });
  Replace(path, "{id}", id.empty() ? "unknown" : id);
  Replace(path, "{date}", digits.substr(0, 8));
  Replace(path, "{time}", digits.substr(8));
  return path;
}

Backup KeepBackup(FileSystem& files, const std::string& folder, const RadioImage& image, const LocalTime& now) {
  std::string stem = folder + Separator + FilledIn("{id}_{date}_{time}", image, now);
  FileResult saved = MakeFolderOf(files, stem);
  if (saved) saved = ReserveName(files, stem, ".K4X");
  const std::string path = stem + ".K4X";
  if (!saved) return {path, saved};
  saved = SaveDataFile(files, path, image);
  if (!saved) static_cast<void>(files.Remove(path));
  const std::string text = InfoToKeep(EmbeddedText(image.EmbeddedInfoBlock));
  const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  if (saved && !text.empty()) saved = ReplaceFile(files, stem + ".txt", bytes, Surplus::Drop);
  return {path, saved};
}

} // namespace mr4500x
