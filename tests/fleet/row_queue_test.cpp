// Which row of the list each port gets next, and which one the user means.
#include "row_queue.h"
#include "rows.h"

namespace mr4500x {
namespace {

std::vector<std::size_t> Numbers(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::size_t>(in), {}};
}

TEST(RowQueueTest, AssignsTheRows) {
  for (const Row& row : RowsOf(CASES "row_slots.txt", "([^:]+): ([\\d ]*); ([\\d ]*); (.*) -> (.*)")) {
    std::vector<RowSlot> ports;
    std::istringstream names(row[4]);
    for (std::string name; names >> name;) {
      RowSlot& port = ports.emplace_back();
      const std::size_t number = name.size() == 1 ? 0 : std::stoul(name.substr(1));
      port.isWaiting = name[0] == 'w';
      (port.isWaiting ? port.next : port.held) = number;
    }
    const std::vector<std::size_t> free = Numbers(row[2]);
    AssignRows(ports, {free.begin(), free.end()}, Numbers(row[3]));
    std::vector<std::size_t> next;
    next.reserve(ports.size());
    for (const RowSlot& port : ports)
      next.push_back(port.next);
    EXPECT_EQ(next, Numbers(row[5])) << row[1];
  }
}

TEST(RowQueueTest, TakesChangesFromLists) {
  RowQueue queue;
  queue.SetPorts(2);
  EXPECT_EQ(queue.BeginList(0), 0);
  EXPECT_EQ(queue.BeginList(1), std::nullopt) << "another port makes the first list";
  const JournalRow free{1, "", "", RowState::Free, "", ""}, done{2, "", "", RowState::Done, "A", "R-2"};
  EXPECT_EQ(queue.EndList({{done, free}, 5}), 1U);
  queue.Hold(1, 1, "COM2");
  EXPECT_EQ(queue.PortThatHolds(1), "COM2");
  EXPECT_EQ(queue.BeginList(1), 5);
  EXPECT_EQ(queue.PortThatHolds(1), "");
  EXPECT_EQ(queue.EndList({{{1, "", "", RowState::Taken, "A", "R-1"}, {2, "", "", RowState::Free, "", ""}}, 6}), 0U);
  EXPECT_EQ(queue.NextFor(0, true).row, 2U);
  EXPECT_EQ(queue.EndList({{done}, 7}), 1U);
  EXPECT_EQ(queue.NextFor(0, true).row, 0U);
}

TEST(RowQueueTest, FindsTheRowThatIsMeant) {
  const std::vector<JournalRow> rows = {{1, "Taxi 1", "", RowState::Free, "", ""},
                                        {2, "R-9", "R-2", RowState::Free, "", ""},
                                        {3, "TAXI 1", "", RowState::Done, "A", "R-3"},
                                        {4, "Bus", "R-9", RowState::Taken, "B", "R-9"},
                                        {5, "", "", RowState::Free, "", ""}};
  const std::pair<const char*, std::size_t> cases[] = {{"Taxi 1", 1}, {" TAXI 1\t", 3}, {"taxi 1", 0}, {"bus", 4},
                                                       {"R-2", 2},    {"R-9", 2},       {"R-3", 3},    {"r-3", 0},
                                                       {"", 0},       {"5", 0}};
  for (const auto& [text, number] : cases) {
    const JournalRow* const row = FindRow(rows, text);
    EXPECT_EQ(row == nullptr ? 0 : row->row, number) << text;
  }
  std::string choosable;
  for (const JournalRow& row : rows)
    if (CanBeChosen(row)) choosable += std::to_string(row.row);
  EXPECT_EQ(choosable, "15");
}

} // namespace
} // namespace mr4500x
