#include "field_rules.h"

#include <gtest/gtest.h>

namespace mr4500x {
namespace {

constexpr Band Uhf = {440, 470};
constexpr Band Wide = {136, 520};

TEST(FrequencyRulesTest, CommitRoundsThenClamps) {
  struct {
    const char* text;
    Band band;
    int step;
    const char* result;
  } const cases[] = {
      {"438.0137", Wide, 250, "438.01250"},  {"438.0137", Wide, 625, "438.01250"},
      {"145.55125", Wide, 250, "145.55000"}, {"145.51875", Wide, 250, "145.52000"},
      {"136.00875", Wide, 250, "136.01000"}, {"430", Uhf, 250, "440.00000"},
      {"470", Uhf, 250, "469.99750"},        {"470", Uhf, 625, "469.99375"},
      {"469.99900", Uhf, 250, "469.99750"},  {"500", Uhf, 625, "469.99375"},
      {"-5", Uhf, 250, "440.00000"},         {"999999999", Uhf, 250, "469.99750"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CommitFrequency(c.text, c.band, c.step, '.'), c.result) << c.text;
  }
  EXPECT_EQ(CommitFrequency("438,0125", Wide, 250, ','), "438,01250");
  for (const char* const text : {"", "4a0", "440,1", "1.2.3"}) {
    EXPECT_EQ(CommitFrequency(text, Uhf, 250, '.'), std::nullopt) << text;
  }
}

TEST(FrequencyRulesTest, ArrowsStopAtTheBandEnds) {
  EXPECT_EQ(StepFrequency("469.99750", true, Uhf, 250, '.'), "469.99750");
  EXPECT_EQ(StepFrequency("469.99750", true, Uhf, 625, '.'), "470.00375"); // only the exact end stops
  EXPECT_EQ(StepFrequency("440", false, Uhf, 250, '.'), "440");
  EXPECT_EQ(StepFrequency("440.00000", true, Uhf, 625, '.'), "440.00625");
  EXPECT_EQ(StepFrequency("440.01", false, Uhf, 250, '.'), "440.00750");
  EXPECT_EQ(StepFrequency("x", false, Uhf, 250, '.'), std::nullopt);
}

TEST(FieldRulesTest, IdTexts) {
  std::string typed;
  for (const char c : std::string("a1*-z E#dD")) {
    if (const auto accepted = IdCharacter(c)) typed += *accepted;
  }
  EXPECT_EQ(typed, "A1*#DD");
  EXPECT_TRUE(IdTextValid("12--#*ABCD"));
  EXPECT_TRUE(IdTextValid(""));
  EXPECT_FALSE(IdTextValid("12x3"));
  EXPECT_FALSE(IdTextValid("a"));
}

TEST(FieldRulesTest, BandBoxes) {
  struct {
    const char *lower, *upper;
    BandEntry lowerEntry;
    int lowerValue;
    BandEntry upperEntry;
    int upperValue;
  } const cases[] = {
      {"440", "470", BandEntry::Accepted, 440, BandEntry::Accepted, 470},
      {"100", "470", BandEntry::Accepted, 136, BandEntry::Accepted, 470},
      {"480", "470", BandEntry::Refused, 0, BandEntry::Refused, 0},
      {"470", "470", BandEntry::Refused, 0, BandEntry::Refused, 0},
      {"440", "999", BandEntry::Accepted, 440, BandEntry::Accepted, 520},
      {"", "470", BandEntry::Empty, 0, BandEntry::Empty, 0},
      {"440", "", BandEntry::Empty, 0, BandEntry::Empty, 0},
      {"0", "1", BandEntry::Accepted, 136, BandEntry::Accepted, 136},
  };
  for (const auto& c : cases) {
    const BandCheck lower = CheckLowerBand(c.lower, c.upper);
    const BandCheck upper = CheckUpperBand(c.lower, c.upper);
    EXPECT_EQ(lower.entry, c.lowerEntry) << c.lower;
    EXPECT_EQ(lower.value, c.lowerValue) << c.lower;
    EXPECT_EQ(upper.entry, c.upperEntry) << c.upper;
    EXPECT_EQ(upper.value, c.upperValue) << c.upper;
  }
}

TEST(FieldRulesTest, ResetTime) {
  const auto check = [](const std::optional<ResetTimeCheck>& result, const char* text, bool off) {
    ASSERT_TRUE(result);
    EXPECT_EQ(result->text, text);
    EXPECT_EQ(result->off, off);
  };
  check(LimitResetTime(""), "1", false);
  check(LimitResetTime("0"), "1", true);
  check(LimitResetTime("007"), "7", false);
  check(LimitResetTime("256"), "255", false);
  check(StepResetTime("1", -1), "1", true);
  check(StepResetTime("0", -1), "1", true);
  check(StepResetTime("255", 1), "255", false);
  check(StepResetTime("9", 1), "10", false);
  EXPECT_FALSE(StepResetTime("", 1));
  EXPECT_EQ(SpinResetTime("1", -1), "1");
  EXPECT_EQ(SpinResetTime("255", 1), "255");
  EXPECT_EQ(SpinResetTime("300", -1), "255");
  EXPECT_EQ(SpinResetTime("", 1), std::nullopt);
}

TEST(FieldRulesTest, FiveToneCodesAndTtsFrequencies) {
  struct {
    const char* text;
    CodeEntry entry;
    const char* result;
  } const cases[] = {{"01234", CodeEntry::Accepted, "01234"},
                     {"12", CodeEntry::NotFive, "12000"},
                     {"", CodeEntry::NotFive, "00000"},
                     {"12a45", CodeEntry::NotDigits, "12000"},
                     {"123456", CodeEntry::NotFive, "12345"}};
  for (const auto& c : cases) {
    EXPECT_EQ(CheckFiveToneCode(c.text).entry, c.entry) << c.text;
    EXPECT_EQ(CheckFiveToneCode(c.text).text, c.result) << c.text;
  }
  const std::pair<const char*, const char*> frequencies[] = {{"", "288"},      {"12", "288"},    {"287", "288"},
                                                             {"1000", "1000"}, {"3000", "3000"}, {"5000", "3000"}};
  for (const auto& [text, result] : frequencies) {
    EXPECT_EQ(LimitTtsFrequency(text), result) << text;
  }
  EXPECT_EQ(LimitTtsFrequency("12x"), std::nullopt);
}

} // namespace
} // namespace mr4500x
