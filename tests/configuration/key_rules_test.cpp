#include "choice_lists.h"
#include "key_rules.h"

#include <gtest/gtest.h>

#include <random>

namespace mr4500x {
namespace {

struct Step {
  std::size_t key;
  int position;
  bool message = false;
};

TEST(KeyRulesTest, PairsAndConflicts) {
  enum Fixed { None, FixedShortA, FixedLongA };
  constexpr bool refused = true;
  const struct {
    const char* story;
    std::vector<Step> steps;
    std::array<int, 6> selection;
    Fixed fixed = None;
  } cases[] = {
      {"Emergency Alert brings the fixed Cancel", {{ShortA, 1}}, {1}, FixedLongA},
      {"Cancel brings the fixed Emergency Alert", {{LongA, 1}}, {0, 1}, FixedShortA},
      {"leaving Emergency Alert brings the own list back", {{LongA, 7}, {ShortA, 1}, {ShortA, 2}}, {2, 7}},
      {"leaving Cancel", {{LongA, 1}, {LongA, 2}}, {0, 2}},
      {"a filled pair shows one fixed list", {{ShortA, 1}, {LongA, 1}}, {1, 1}, FixedLongA},
      {"a new choice on Long A frees Short A", {{ShortA, 1}, {LongA, 2}}, {0, 2}},
      {"Reverse against Talk Around", {{ShortA, 5}, {LongB, 5, refused}}, {5}},
      {"a refused key returns to what it had", {{ShortA, 5}, {LongC, 3}, {LongC, 4, refused}}, {5, 0, 0, 0, 0, 3}},
      {"Long A's own Reverse counts", {{LongA, 6}, {ShortB, 6, refused}}, {0, 6}},
      {"a long press under Monitor does not count", {{LongB, 4}, {ShortB, 1}, {ShortA, 5}}, {5, 0, 1, 4}},
      {"leaving Monitor makes it count", {{LongB, 4}, {ShortB, 1}, {ShortA, 5}, {ShortB, 2, refused}}, {5, 0, 1, 4}},
      {"under the pair keys A do not count", {{LongA, 5}, {ShortA, 1}, {ShortB, 5}}, {1, 5, 5}, FixedLongA},
      {"and leaving the pair is refused",
       {{LongA, 5}, {ShortA, 1}, {ShortB, 5}, {ShortA, 2, refused}},
       {1, 5, 5},
       FixedLongA},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.story);
    KeyProgram keys;
    for (const Step& step : c.steps) {
      EXPECT_EQ(SelectKey(keys, step.key, step.position), step.message);
    }
    EXPECT_EQ(keys.selection, c.selection);
    EXPECT_EQ(keys.fixedShortAShown, c.fixed == FixedShortA);
    EXPECT_EQ(keys.fixedLongAShown, c.fixed == FixedLongA);
  }
}

// Whatever the user does, at most one key that counts holds Talk Around or Reverse and one of each A pair is hidden.
TEST(KeyRulesTest, RandomSelectionsComeToRest) {
  std::mt19937 random(4);
  KeyProgram keys;
  for (int round = 0; round < 20000; ++round) {
    const std::size_t key = random() % 6;
    static_cast<void>(SelectKey(keys, key, static_cast<int>(random() % KeyItems(key).size())));
    const bool emergency = keys.selection[ShortA] == 1 || keys.selection[LongA] == 1;
    int count = 0;
    for (std::size_t k = emergency ? 2 : 0; k < 6; ++k) {
      const std::string_view text = KeyItemText(k, keys.selection[k]);
      if (LongPressEnabled(keys, k) && (text == "Talk Around" || text == "Reverse" || text == "Reverse ")) ++count;
    }
    ASSERT_LE(count, 1);
    ASSERT_FALSE(keys.fixedShortAShown && keys.fixedLongAShown);
    ASSERT_EQ(emergency, keys.fixedShortAShown || keys.fixedLongAShown);
  }
}

} // namespace
} // namespace mr4500x
