#include "decimal.h"
#include "field_texts.h"
#include "tone_codes.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

TEST(DecimalTest, ReadsOnlyDecimalNumbers) {
  for (const char* const text : {"", " ", ".", "-", "1,5", "1.2.3", "1e3", "x", "1 2", "1234567890123"}) {
    EXPECT_FALSE(ParseDecimal(text, '.')) << text;
  }
  struct {
    const char* text;
    std::int64_t tensOfHertz;
  } const cases[] = {
      {"438.0125", 43801250}, {" 438 ", 43800000}, {"438.", 43800000}, {".5", 50000},    {"-1.5", -150000},
      {"000.00001", 1},       {"0.000005", 0},     {"0.000015", 2},    {"0.0000251", 3}, {"999999999", 99999999900000}};
  for (const auto& c : cases) {
    const auto number = ParseDecimal(c.text, '.');
    ASSERT_TRUE(number) << c.text;
    EXPECT_EQ(CountOfUnits(*number, 5, 1), c.tensOfHertz) << c.text;
  }
  EXPECT_TRUE(ParseDecimal("438,0125", ','));
  EXPECT_FALSE(ParseDecimal("438.0125", ','));
}

TEST(DecimalTest, RoundsHalvesToTheEvenNeighbour) {
  struct {
    std::int64_t numerator, denominator, result;
  } const cases[] = {{5, 2, 2}, {7, 2, 4}, {-5, 2, -2}, {-7, 2, -4}, {-1, 2, 0}, {9, 5, 2}, {-9, 5, -2}, {4, 2, 2}};
  for (const auto& c : cases) {
    EXPECT_EQ(RoundHalfEven(c.numerator, c.denominator), c.result) << c.numerator;
  }
}

TEST(ToneTextTest, ListsEveryChoiceInOrder) {
  const FieldTexts texts = BuildFieldTexts('.');
  const std::vector<std::string> list = ToneChoiceList(texts);
  ASSERT_EQ(list.size(), 206U);
  const std::pair<std::size_t, const char*> entries[] = {{1, "OFF"},       {2, "CTC67.0"},  {13, "CTC100.0"},
                                                         {40, "CTC69.3"},  {41, "DCS023"},  {123, "DCS754"},
                                                         {124, "-DCS023"}, {206, "-DCS754"}};
  for (const auto& [number, text] : entries) {
    EXPECT_EQ(list[number - 1], text);
  }
  for (const std::string& text : list) {
    ToneField tone;
    ApplyToneText(tone, text, texts);
    EXPECT_EQ(ToneText(tone, texts), text);
  }
  EXPECT_EQ(BuildFieldTexts(',').CtcssNames[7], "CTC88,5");
  EXPECT_EQ(BuildFieldTexts(',').NarrowBandText, "12,5");
}

struct ToneCase {
  ToneField read;
  const char* text;
  ToneField written; // over the bits of `read`
};

TEST(ToneTextTest, ReadsAndWritesTheBits) {
  const FieldTexts texts = BuildFieldTexts('.');
  const ToneCase cases[] = {
      {{0x80, 0x27, 0x05}, "OFF", {0x80, 0x27, 0x05}},
      {{0xE8, 0x27, 0x05}, "OFF", {0x88, 0x27, 0x05}}, // stale kind and polarity bits go, bit 3 stays
      {{0xB0, 39, 0x33}, "CTC69.3", {0xB0, 39, 0x33}},
      {{0xF0, 8, 0x00}, "CTC88.5", {0xB0, 8, 0x00}},
      {{0xD0, 0x23, 0x00}, "DCS023", {0xD0, 0x23, 0x00}},
      {{0x90, 0x54, 0x07}, "-DCS754", {0x90, 0x54, 0x07}},
      {{0xD0, 0x31, 0x17}, "DCS731", {0xD0, 0x31, 0x07}}, // byte B's high nibble is not part of the code
      {{0xD0, 0x99, 0x00}, "DCS099", {0xD0, 0x99, 0x00}}, // no code of the table, shown all the same
      {{0xD0, 0xA3, 0x0F}, "DCSFA3", {0xD0, 0xA3, 0x0F}},
      {{0xB0, 0, 0xFF}, "CTC#0", {0xB0, 0, 0xFF}},
      {{0xB0, 40, 0xFF}, "CTC#40", {0xB0, 40, 0xFF}},
      {{0xF0, 255, 0xFF}, "CTC#255", {0xB0, 255, 0xFF}},
  };
  for (const ToneCase& c : cases) {
    EXPECT_EQ(ToneText(c.read, texts), c.text);
    ToneField tone = c.read;
    ApplyToneText(tone, c.text, texts);
    EXPECT_EQ(tone.flags, c.written.flags) << c.text;
    EXPECT_EQ(tone.codeA, c.written.codeA) << c.text;
    EXPECT_EQ(tone.codeB, c.written.codeB) << c.text;
  }
}

} // namespace
} // namespace mr4500x
