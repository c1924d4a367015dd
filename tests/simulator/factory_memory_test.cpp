#include "radio_memory.h"

#include "hex_bytes.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

TEST(FactoryMemory, HoldsTheBytesThatARadioOfThatContentWouldHold) {
  struct Case {
    std::size_t address;
    std::string bytes;
  };
  // clang-format off
  const Case cases[] = {
      {0x000, "B1 02 13 01 08 00 B1 02 13 01 08 00 A8 00 00 00"}, // 440.0125 MHz, CTCSS 88.5
      {0x010, "D0 D8 B1 02 23 00 D0 78 C1 02 23 00 E0 00 00 00"}, // 441.5 / 451.5 MHz at 2.5 kHz, DCS 023
      {0x020, "91 E1 14 01 54 07 B1 21 1B 01 27 00 38 00 00 00"}, // inverted DCS 754 / CTCSS 69.3
      {0x030, "B5 34 16 01 0C 00 B5 34 16 01 0C 00 98 01 03 11"}, // TTS 1 / TTS 3, group call tone A
      {0x080, "01 00 13 01 00 00 81 00 13 01 00 00 A8 00 00 00"}, // not in use
      {0x1E0, "6E 03 C8 09 E9 03 27 0B"},
      {0x1F0, "4C 52 37 32 30 30 2D 30 30 30 30 30 34 32 31 37"},
      {0x210, "44 00 65 00 6D 00"},
      {0x3F0, "B8 01 D6 01 00 30 00 00"},
  };
  // clang-format on
  const RadioMemory memory = FactoryMemory();
  for (const Case& c : cases) {
    const auto start = memory.begin() + static_cast<std::ptrdiff_t>(c.address);
    const auto length = static_cast<std::ptrdiff_t>(FromHex(c.bytes).size());
    EXPECT_EQ(ToHex({start, start + length}), c.bytes) << std::hex << c.address;
  }
}

} // namespace
} // namespace mr4500x
