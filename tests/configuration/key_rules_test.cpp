#include "choice_lists.h"
#include "key_rules.h"

#include <gtest/gtest.h>

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
      {"leaving it is refused", {{LongA, 5}, {ShortA, 1}, {ShortB, 5}, {ShortA, 2, refused}}, {1, 5, 5}, FixedLongA},
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

} // namespace
} // namespace mr4500x
