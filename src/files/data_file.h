// Data files: the part of a radio image that is kept on disk. Writes version 1 of the layout, reads versions 0 and 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "file_access.h"
#include "radio_image.h"

namespace mr4500x {

inline constexpr std::size_t DataFileBytes = 713;
// The most that a load reads. Bytes after the last item are ignored.
inline constexpr std::size_t DataFileReadLimit = std::size_t{1} << 20;

enum class LoadOutcome : std::uint8_t {
  Loaded,
  Missing,      // no such file
  Damaged,      // unreadable, or not the items of a data file
  LaterVersion, // the header of an unknown version of this series
  ErrorVersion, // any other header
};

struct LoadResult {
  LoadOutcome outcome = LoadOutcome::Damaged;
  bool markerNotEmpty = false; // made for newer software: show NewVersionNotice, whatever the outcome
  int damagedItem = 0;         // counted from 1; 0 if the file is missing or can't be read
  bool endsInItem = false;     // otherwise the item has the wrong kind or shape
  std::string systemReason{};  // if the file is missing or can't be read
  bool operator==(const LoadResult&) const = default;
};

[[nodiscard]] std::vector<std::uint8_t> BuildDataFile(const RadioImage& image);

// Blocks before a damaged item get the file's values. Blocks that are not part of files are unchanged.
[[nodiscard]] LoadResult ParseDataFile(std::span<const std::uint8_t> bytes, RadioImage& image);

// Parses the bytes if they could be read.
[[nodiscard]] LoadResult ResultOfLoad(const ReadResult& read, std::span<const std::uint8_t> bytes, RadioImage& image);
[[nodiscard]] LoadResult LoadDataFile(FileSystem& files, const std::string& path, RadioImage& image);

// All or nothing. A longer old file keeps its bytes after the written ones.
FileResult SaveDataFile(FileSystem& files, const std::string& path, const RadioImage& image);

} // namespace mr4500x
