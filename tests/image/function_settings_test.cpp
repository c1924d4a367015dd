#include "function_settings.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

TEST(FunctionSettingsTest, DigitsArePackedFirstInTheLowNibble) {
  struct {
    const char* text;
    std::array<std::uint8_t, 8> bytes; // over an area of 0xEE
  } const cases[] = {
      {"123", {0x21, 0x03, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}},
      {"0*#D", {0xBA, 0x0C, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}},
      {"123456789ABCD0*#", {0x21, 0x43, 0x65, 0x87, 0xD9, 0xFE, 0xA0, 0xCB}},
      {"12-", {0x21, 0x02, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}}, // "-" repeats the code before it
      {"-1", {0x10, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}},
      {"", {0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}},
      {"1111111111111111222", {0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11}}, // only 16 fit
  };
  for (const auto& c : cases) {
    std::array<std::uint8_t, 8> area{};
    area.fill(0xEE);
    PackDigits(c.text, area);
    EXPECT_EQ(area, c.bytes) << c.text;
  }
  EXPECT_EQ(UnpackDigits(cases[2].bytes, 16), "123456789ABCD0*#");
  EXPECT_EQ(UnpackDigits(cases[2].bytes, 31), "123456789ABCD0*#");
  EXPECT_EQ(UnpackDigits(cases[1].bytes, 3), "0*#");
}

TEST(FunctionSettingsTest, LimitsAreSixteenBitMegahertz) {
  std::array<std::uint8_t, 8> band{};
  SetLowerBandLimit(band, 136);
  SetUpperBandLimit(band, 520);
  EXPECT_EQ(band, (std::array<std::uint8_t, 8>{0x88, 0x00, 0x08, 0x02}));
  EXPECT_EQ(LowerBandLimit(band), 136);
  EXPECT_EQ(UpperBandLimit(band), 520);
}

TEST(FunctionSettingsTest, IdentityBytesAreCharacters) {
  const std::uint8_t bytes[] = {'V', '1', 0x00, 0x07, 0xE9, 0x90};
  EXPECT_EQ(CharactersText(bytes), "V1.\xC3\xA9.");
}

} // namespace
} // namespace mr4500x
