#include "choice_lists.h"
#include "key_rules.h"
#include "rows.h"

#include <map>

namespace mr4500x {
namespace {

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
