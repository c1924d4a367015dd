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
      {"145.55125", Wide, 250, "145.55000"}, {"136.00875", Wide, 250, "136.01000"},
      {"430", Uhf, 250, "440.00000"},        {"470", Uhf, 625, "469.99375"},
      {"469.99900", Uhf, 250, "469.99750"},  {"-5", Uhf, 250, "440.00000"},
      {"999999999", Uhf, 250, "469.99750"},
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
  using enum BandEntry;
  const struct {
    const char *lower, *upper;
    BandEntry entry; // of both boxes
    int lowerValue, upperValue;
  } cases[] = {
      {"440", "470", Accepted, 440, 470}, {"100", "470", Accepted, 136, 470}, {"480", "470", Refused, 0, 0},
      {"470", "470", Refused, 0, 0},      {"440", "999", Accepted, 440, 520}, {"", "470", Empty, 0, 0},
      {"440", "", Empty, 0, 0},           {"0", "1", Accepted, 136, 136},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.lower) + " to " + c.upper);
    const BandCheck lower = CheckLowerBand(c.lower, c.upper);
    const BandCheck upper = CheckUpperBand(c.lower, c.upper);
    EXPECT_TRUE(lower.entry == c.entry && upper.entry == c.entry);
    EXPECT_EQ(lower.value, c.lowerValue);
    EXPECT_EQ(upper.value, c.upperValue);
  }
}

TEST(FieldRulesTest, ResetTime) {
  const struct {
    const char* name;
    std::optional<ResetTimeCheck> check;
    const char* text;
    bool off;
  } cases[] = {{"empty", LimitResetTime(""), "1", false},         {"0", LimitResetTime("0"), "1", true},
               {"007", LimitResetTime("007"), "7", false},        {"256", LimitResetTime("256"), "255", false},
               {"1 down", StepResetTime("1", -1), "1", true},     {"0 down", StepResetTime("0", -1), "1", true},
               {"255 up", StepResetTime("255", 1), "255", false}, {"9 up", StepResetTime("9", 1), "10", false}};
  for (const auto& [name, check, text, off] : cases) {
    ASSERT_TRUE(check) << name;
    EXPECT_EQ(check->text, text) << name;
    EXPECT_EQ(check->off, off) << name;
  }
  EXPECT_FALSE(StepResetTime("", 1));
  EXPECT_EQ(SpinResetTime("1", -1), "1");
  EXPECT_EQ(SpinResetTime("255", 1), "255");
  EXPECT_EQ(SpinResetTime("300", -1), "255");
  EXPECT_EQ(SpinResetTime("", 1), std::nullopt);
}

TEST(FieldRulesTest, FiveToneCodesAndTtsFrequencies) {
  using enum CodeEntry;
  const std::tuple<const char*, CodeEntry, const char*> codes[] = {{"01234", Accepted, "01234"},
                                                                   {"12", NotFive, "12000"},
                                                                   {"", NotFive, "00000"},
                                                                   {"12a45", NotDigits, "12000"},
                                                                   {"123456", NotFive, "12345"}};
  for (const auto& [text, entry, result] : codes) {
    EXPECT_EQ(CheckFiveToneCode(text).entry, entry) << text;
    EXPECT_EQ(CheckFiveToneCode(text).text, result) << text;
  }
  const std::pair<const char*, const char*> frequencies[] = {
      {"", "288"}, {"287", "288"}, {"1000", "1000"}, {"3000", "3000"}, {"5000", "3000"}};
  for (const auto& [text, result] : frequencies) {
    EXPECT_EQ(LimitTtsFrequency(text), result) << text;
  }
  EXPECT_EQ(LimitTtsFrequency("12x"), std::nullopt);
}

} // namespace
} // namespace mr4500x
