#include "fleet_fixture.h"

namespace mr4500x {
namespace {

// One radio in ten has a fault, each kind in turn. A radio that is unplugged without its row is connected again later.
TEST(ManyRadiosTest, EachRowIsDoneOnceAndEachRadioHoldsItsRow) {
  constexpr std::size_t Radios = 200, Ports = 16;
  Fleet fleet;
  std::string rows = "label,global.connect_id,embedded_info\n";
  for (std::size_t row = 1; row <= Radios; ++row) {
    rows += "Truck " + std::to_string(row) + ',' + std::to_string(1000 + row) + ",text " + std::to_string(row) + '\n';
    const FaultKind& kind = FaultKinds()[row / 10 % FaultKinds().size()];
    fleet.AddRadio("R-" + std::to_string(row),
                   row % 10 == 0 ? std::vector{*ParseFault(kind.name)} : std::vector<PlannedFault>());
  }
  fleet.UsePlan(rows);
  fleet.UseCables(Ports);
  fleet.stopsWithoutRadios = false;
  fleet.putsBack = fleet.goesOn = true;
  fleet.Run();

  ASSERT_EQ(fleet.tables.done.size(), Radios);
  EXPECT_GT(fleet.tables.attempts.size(), Radios);
  std::set<std::string> holders;
  for (const JournalRow& row : fleet.tables.rows) {
    EXPECT_EQ(fleet.tables.done[row.row], 1) << row.row;
    EXPECT_TRUE(fleet.Holds(row.idNumber, row.row)) << row.row;
    holders.insert(row.idNumber);
  }
  EXPECT_EQ(holders.size(), Radios);
}

} // namespace
} // namespace mr4500x
