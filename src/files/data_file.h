// Data files: the storable part of a radio image on disk. One layout is written, version 1; versions 0 and 1 are read.
// Words for the user are left to src/messages, bytes on the disk to file_access.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "file_system.h"
#include "radio_image.h"

namespace mr4500x {

inline constexpr std::size_t DataFileBytes = 713;
// What loading looks at. The items of a sound file end long before; what follows them is nobody's.
inline constexpr std::size_t DataFileReadLimit = std::size_t{1} << 20;

enum class LoadOutcome : std::uint8_t {
  Loaded,
  Missing,      // nothing at the path
  Damaged,      // unreadable, or no sequence of the items that make a data file
  LaterVersion, // the header of a version that is not known yet
  ErrorVersion, // something else than a header of this series
};

struct LoadResult {
  LoadOutcome outcome = LoadOutcome::Damaged;
  bool markerNotEmpty = false; // made for other software than this: worth a notice, whatever the outcome
  bool operator==(const LoadResult&) const = default;
};

[[nodiscard]] std::array<std::uint8_t, DataFileBytes> BuildDataFile(const RadioImage& image);

// Blocks read before a damaged item keep the file's values; blocks that no file holds are not touched.
[[nodiscard]] LoadResult ParseDataFile(std::span<const std::uint8_t> bytes, RadioImage& image);

[[nodiscard]] LoadResult LoadDataFile(FileSystem& files, const std::string& path, RadioImage& image);

// All or nothing. An older, longer file keeps its surplus behind the written bytes.
[[nodiscard]] bool SaveDataFile(FileSystem& files, const std::string& path, const RadioImage& image);

} // namespace mr4500x
