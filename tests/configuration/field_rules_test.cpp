#include "field_rules.h"

#include "key_rules.h"
#include "rows.h"

#include <functional>
#include <map>

namespace mr4500x {
namespace {

constexpr Band Uhf = {440, 470};
constexpr Band Wide = {136, 520};

std::string ResultOf(const std::optional<std::string>& result) {
  return result.value_or("none");
}

std::string ResultOf(const std::optional<ResetTimeCheck>& check) {
  return check ? check->text + (check->off ? " OFF" : "") : "none";
}

// "LOWER to UPPER" in the boxes, and the resulting limits.
std::string Limits(const std::string& text) {
  const std::size_t to = text.find(" to ");
  const std::string lower = text.substr(0, to), upper = text.substr(to + 4);
  const BandCheck low = CheckLowerBand(lower, upper), high = CheckUpperBand(lower, upper);
  EXPECT_EQ(low.entry, high.entry) << text;
  if (low.entry != BandEntry::Accepted) return low.entry == BandEntry::Empty ? "empty" : "refused";
  return std::to_string(low.value) + " to " + std::to_string(high.value);
}

std::string Code(const std::string& text) {
  const CodeCheck check = CheckFiveToneCode(text);
  const char* const entries[] = {"", "not digits ", "not five "};
  return entries[static_cast<int>(check.entry)] + check.text;
}

std::string Typed(const std::string& keys) {
  std::string typed;
  for (const char key : keys)
    if (const auto character = IdCharacter(key)) typed += *character;
  EXPECT_TRUE(IdTextValid(typed)) << typed;
  return typed;
}

TEST(FieldRulesTest, TextsBecomeWhatTheFileSays) {
  using Text = const std::string&;
  const std::map<std::string, std::function<std::string(Text)>> rules = {
      {"commit UHF 2.5", [](Text text) { return ResultOf(CommitFrequency(text, Uhf, 250, '.')); }},
      {"commit UHF 6.25", [](Text text) { return ResultOf(CommitFrequency(text, Uhf, 625, '.')); }},
      {"commit wide 2.5", [](Text text) { return ResultOf(CommitFrequency(text, Wide, 250, '.')); }},
      {"commit wide 6.25", [](Text text) { return ResultOf(CommitFrequency(text, Wide, 625, '.')); }},
      {"commit with a comma", [](Text text) { return ResultOf(CommitFrequency(text, Wide, 250, ',')); }},
      {"up 2.5", [](Text text) { return ResultOf(StepFrequency(text, true, Uhf, 250, '.')); }},
      {"up 6.25", [](Text text) { return ResultOf(StepFrequency(text, true, Uhf, 625, '.')); }},
      {"down 2.5", [](Text text) { return ResultOf(StepFrequency(text, false, Uhf, 250, '.')); }},
      {"ID keys", Typed},
      {"ID", [](Text text) { return IdTextValid(text) ? "valid" : "not valid"; }},
      {"band", Limits},
      {"reset time", [](Text text) { return ResultOf(LimitResetTime(text)); }},
      {"reset time up", [](Text text) { return ResultOf(StepResetTime(text, 1)); }},
      {"reset time down", [](Text text) { return ResultOf(StepResetTime(text, -1)); }},
      {"reset time spun up", [](Text text) { return ResultOf(SpinResetTime(text, 1)); }},
      {"reset time spun down", [](Text text) { return ResultOf(SpinResetTime(text, -1)); }},
      {"5-tone code", Code},
      {"TTS frequency", [](Text text) { return ResultOf(LimitTtsFrequency(text)); }},
  };
  for (const Row& row : RowsOf(CASES "field_rules.txt", "([^:]+): (.*?) -> (.*)"))
    EXPECT_EQ(rules.at(row[1])(row[2]), row[3]) << row[0];
}

TEST(KeyRulesTest, PairsAndConflicts) {
  const std::map<std::string, Key> keysByName = {{"ShortA", ShortA}, {"LongA", LongA},   {"ShortB", ShortB},
                                                 {"LongB", LongB},   {"ShortC", ShortC}, {"LongC", LongC}};
  for (const Row& row : RowsOf(CASES "key_rules.txt", "[^:]+: (.*) -> (.*)")) {
    KeyProgram keys;
    std::istringstream steps(row[1]);
    for (std::string key, position; steps >> key >> position;)
      EXPECT_EQ(SelectKey(keys, keysByName.at(key), std::stoi(position)), position.ends_with('!') ? 1 : 0) << row[0];
    std::string shown;
    for (const int position : keys.selection)
      shown += std::to_string(position) + ' ';
    shown += keys.fixedShortAShown ? "fixed ShortA" : keys.fixedLongAShown ? "fixed LongA" : "own";
    EXPECT_EQ(shown, row[2]) << row[0];
  }
}

} // namespace
} // namespace mr4500x
