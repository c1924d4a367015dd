#include "tone_codes.h"

#include "function_settings.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

TEST(ToneTextTest, ReadsAndWritesTheBits) {
  const FieldTexts texts = BuildFieldTexts('.');
  const struct {
    ToneField read;
    const char* text;
    ToneField written; // over the bits of `read`
  } cases[] = {
      {{0xE8, 0x27, 0x05}, "OFF", {0x88, 0x27, 0x05}}, // stale kind and polarity bits go, bit 3 stays
      {{0xF0, 8, 0x00}, "CTC88.5", {0xB0, 8, 0x00}},      {{0xB0, 39, 0x33}, "CTC69.3", {0xB0, 39, 0x33}},
      {{0xD0, 0x31, 0x17}, "DCS731", {0xD0, 0x31, 0x07}}, // byte B's high nibble is not part of the code
      {{0xD0, 0x99, 0x00}, "DCS099", {0xD0, 0x99, 0x00}}, // no code of the table, shown all the same
      {{0xD0, 0xA3, 0x0F}, "DCSFA3", {0xD0, 0xA3, 0x0F}}, {{0xB0, 0, 0xFF}, "CTC#0", {0xB0, 0, 0xFF}},
      {{0xB0, 40, 0xFF}, "CTC#40", {0xB0, 40, 0xFF}},     {{0xF0, 255, 0xFF}, "CTC#255", {0xB0, 255, 0xFF}},
  };
  for (const auto& [read, text, written] : cases) {
    EXPECT_EQ(ToneText(read, texts), text);
    ToneField tone = read;
    ApplyToneText(tone, text, texts);
    EXPECT_EQ(tone, written) << text;
  }
}

TEST(CharactersTest, SkipTheFillAndReplaceWhatCannotBePrinted) {
  const std::uint8_t bytes[] = {'V', '1', 0x00, 0x07, 0xE9, 0x90};
  EXPECT_EQ(CharactersText(bytes), "V1.\xC3\xA9.");
}

} // namespace
} // namespace mr4500x
