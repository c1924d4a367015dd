#include "choice_lists.h"
#include "key_rules.h"

#include <gtest/gtest.h>

#include <random>

namespace mr4500x {
namespace {

struct Step {
  std::size_t key;
  int position;
  bool message;
};

struct KeyCase {
  const char* story;
  std::vector<Step> steps;
  std::array<int, 6> selection;
  bool fixedShortA, fixedLongA;
};

TEST(KeyRulesTest, PairsAndConflicts) {
  const KeyCase cases[] = {
      {"Emergency Alert brings the fixed Cancel", {{ShortA, 1, false}}, {1, 0, 0, 0, 0, 0}, false, true},
      {"Cancel brings the fixed Emergency Alert", {{LongA, 1, false}}, {0, 1, 0, 0, 0, 0}, true, false},
      {"leaving Emergency Alert brings the own list back",
       {{LongA, 7, false}, {ShortA, 1, false}, {ShortA, 2, false}},
       {2, 7, 0, 0, 0, 0},
       false,
       false},
      {"leaving Cancel", {{LongA, 1, false}, {LongA, 2, false}}, {0, 2, 0, 0, 0, 0}, false, false},
      {"a filled pair shows one fixed list", {{ShortA, 1, false}, {LongA, 1, false}}, {1, 1, 0, 0, 0, 0}, false, true},
      {"a new choice on Long A frees Short A",
       {{ShortA, 1, false}, {LongA, 2, false}},
       {0, 2, 0, 0, 0, 0},
       false,
       false},
      {"Reverse against Talk Around", {{ShortA, 5, false}, {LongB, 5, true}}, {5, 0, 0, 0, 0, 0}, false, false},
      {"a refused key returns to what it had",
       {{ShortA, 5, false}, {LongC, 3, false}, {LongC, 4, true}},
       {5, 0, 0, 0, 0, 3},
       false,
       false},
      {"Long A's own Reverse counts", {{LongA, 6, false}, {ShortB, 6, true}}, {0, 6, 0, 0, 0, 0}, false, false},
      {"a long press under Monitor does not count",
       {{LongB, 4, false}, {ShortB, 1, false}, {ShortA, 5, false}},
       {5, 0, 1, 4, 0, 0},
       false,
       false},
      {"leaving Monitor makes it count again",
       {{LongB, 4, false}, {ShortB, 1, false}, {ShortA, 5, false}, {ShortB, 2, true}},
       {5, 0, 1, 4, 0, 0},
       false,
       false},
      {"under the emergency pair keys A do not count",
       {{LongA, 5, false}, {ShortA, 1, false}, {ShortB, 5, false}},
       {1, 5, 5, 0, 0, 0},
       false,
       true},
      {"and leaving the pair is refused",
       {{LongA, 5, false}, {ShortA, 1, false}, {ShortB, 5, false}, {ShortA, 2, true}},
       {1, 5, 5, 0, 0, 0},
       false,
       true},
  };
  for (const KeyCase& c : cases) {
    SCOPED_TRACE(c.story);
    KeyProgram keys;
    for (const Step& step : c.steps) {
      EXPECT_EQ(SelectKey(keys, step.key, step.position), step.message);
    }
    EXPECT_EQ(keys.selection, c.selection);
    EXPECT_EQ(keys.fixedShortAShown, c.fixedShortA);
    EXPECT_EQ(keys.fixedLongAShown, c.fixedLongA);
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
