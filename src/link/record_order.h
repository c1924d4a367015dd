// Which records each exchange transfers, in which order. RecordMap in radio_image.h says what they hold.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "radio_image.h"

namespace mr4500x {

// Records at consecutive addresses, both ends included.
struct RecordRun {
  std::uint16_t first, last;
};

// clang-format off
inline constexpr std::array ReadOrder = {
    RecordRun{0x000, 0x140}, // channels to emergency ANI, with the unused 0x118-0x12F
    RecordRun{0x180, 0x198}, // TTS timing
    RecordRun{0x1C0, 0x378}, // reset time to selective-call codes, with the unused 0x1E8
    RecordRun{0x3F0, 0x3F8}, // band, firmware version
};

inline constexpr std::array WriteOrder = {
    RecordRun{0x000, 0x0F8}, // channels
    RecordRun{0x100, 0x110}, // radio settings, key program
    RecordRun{0x130, 0x140}, // PTT ID, Emergency ANI
    RecordRun{0x180, 0x198}, // TTS timing
    RecordRun{0x1C0, 0x1E0}, // reset time, tone frequencies
    RecordRun{0x200, 0x208}, // write stamp
    RecordRun{0x300, 0x378}, // selective-call codes
    RecordRun{0x3F0, 0x3F0}, // band
};

inline constexpr std::array ReadInfoOrder  = {RecordRun{0x200, 0x2F8}}; // write stamp, embedded information
inline constexpr std::array WriteInfoOrder = {RecordRun{0x210, 0x2F8}}; // embedded information
// clang-format on

template<std::size_t Runs>
constexpr std::size_t RecordCount(const std::array<RecordRun, Runs>& order) {
  std::size_t count = 0;
  for (const RecordRun& run : order)
    count += (run.last - run.first) / RecordBytes + 1u;
  return count;
}

static_assert(RecordCount(ReadOrder) == 103);
static_assert(RecordCount(WriteOrder) == 66);
static_assert(RecordCount(ReadInfoOrder) == 32);
static_assert(RecordCount(WriteInfoOrder) == 30);

template<const auto& Order>
constexpr std::array<std::uint16_t, RecordCount(Order)> RecordAddresses() {
  std::array<std::uint16_t, RecordCount(Order)> addresses{};
  std::size_t i = 0;
  for (const RecordRun& run : Order)
    for (std::size_t address = run.first; address <= run.last; address += RecordBytes)
      addresses[i++] = static_cast<std::uint16_t>(address);
  return addresses;
}

} // namespace mr4500x
