#include "tone_codes.h"

#include "decimal.h"
#include "function_settings.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

TEST(DecimalTest, ReadsOnlyDecimalNumbers) {
  for (const char* const text : {"", " ", ".", "-", "1,5", "1.2.3", "1e3", "x", "1 2", "1234567890123"})
    EXPECT_FALSE(ParseDecimal(text, '.')) << text;
  const std::pair<const char*, std::int64_t> tensOfHertz[] = {
      {"438.0125", 43801250}, {" 438 ", 43800000}, {"438.", 43800000}, {".5", 50000},    {"-1.5", -150000},
      {"000.00001", 1},       {"0.000005", 0},     {"0.000015", 2},    {"0.0000251", 3}, {"999999999", 99999999900000}};
  for (const auto& [text, count] : tensOfHertz) {
    const auto number = ParseDecimal(text, '.');
    ASSERT_TRUE(number) << text;
    EXPECT_EQ(CountOfUnits(*number, 5, 1), count) << text;
  }
  EXPECT_TRUE(ParseDecimal("438,0125", ','));
  EXPECT_FALSE(ParseDecimal("438.0125", ','));
}

TEST(DecimalTest, RoundsHalvesToTheEvenNeighbour) {
  const std::array<std::int64_t, 3> cases[] = {{5, 2, 2},  {7, 2, 4}, {-5, 2, -2}, {-7, 2, -4},
                                               {-1, 2, 0}, {9, 5, 2}, {-9, 5, -2}, {4, 2, 2}};
  for (const auto& [numerator, denominator, result] : cases)
    EXPECT_EQ(RoundHalfEven(numerator, denominator), result) << numerator;
}

TEST(ToneTextTest, ListsEveryChoiceInOrder) {
  const std::vector<std::string> list = BuildFieldTexts('.').ToneChoiceList;
  ASSERT_EQ(list.size(), 206U);
  const std::pair<std::size_t, const char*> entries[] = {{1, "OFF"},       {2, "CTC67.0"},  {13, "CTC100.0"},
                                                         {40, "CTC69.3"},  {41, "DCS023"},  {123, "DCS754"},
                                                         {124, "-DCS023"}, {206, "-DCS754"}};
  for (const auto& [number, text] : entries)
    EXPECT_EQ(list[number - 1], text);
}

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

TEST(DigitsTest, ArePackedFirstInTheLowNibble) {
  const struct {
    const char* text;
    std::vector<std::uint8_t> bytes; // over an area of 0xEE
  } cases[] = {
      {"0*#D", {0xBA, 0x0C}},
      {"123456789ABCD0*#", {0x21, 0x43, 0x65, 0x87, 0xD9, 0xFE, 0xA0, 0xCB}},
      {"12-", {0x21, 0x02}}, // "-" repeats the code before it
      {"-1", {0x10}},
      {"", {}},
      {"1111111111111111222", {0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11}}, // only 16 fit
  };
  for (const auto& [text, bytes] : cases) {
    std::array<std::uint8_t, 8> area{}, expected{};
    area.fill(0xEE);
    expected.fill(0xEE);
    std::ranges::copy(bytes, expected.begin());
    PackDigits(text, area);
    EXPECT_EQ(area, expected) << text;
  }
  std::array<std::uint8_t, 8> area{};
  PackDigits("123456789ABCD0*#", area);
  EXPECT_EQ(UnpackDigits(area, 31), "123456789ABCD0*#");
  EXPECT_EQ(UnpackDigits(area, 3), "123");
}

TEST(CharactersTest, SkipTheFillAndReplaceWhatCannotBePrinted) {
  const std::uint8_t bytes[] = {'V', '1', 0x00, 0x07, 0xE9, 0x90};
  EXPECT_EQ(CharactersText(bytes), "V1.\xC3\xA9.");
}

} // namespace
} // namespace mr4500x
