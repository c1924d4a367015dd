#include "port_choice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace mr4500x {

TEST(PortChoice, IsTheOneInUseElseTheLowestThatWorks) {
  const struct {
    const char* name;
    int current;
    std::vector<int> working;
    int number, preselected;
  } cases[] = {{"its own", 4, {1, 4}, 4, 4}, {"not its own", 3, {16, 9}, 9, 9}, {"none works", 5, {}, 0, 1}};
  for (const auto& [name, current, working, number, preselected] : cases) {
    const auto works = [&ports = working](int n) { return std::ranges::find(ports, n) != ports.end(); };
    const PortChoice choice = ChoosePort(current, works);
    EXPECT_EQ(choice.number, number) << name;
    EXPECT_EQ(choice.preselected, preselected) << name;
  }
}

} // namespace mr4500x
