// The grid's cells: colours, clicks and keys.
#include "editor_fixture.h"

namespace mr4500x {
namespace {

TEST_F(ChannelTest, EachClickOrSpaceTogglesTheCell) {
  SetCell(4, 3, "CTC88.5");
  for (const Row& row : RowsOf(CASES "toggled_cells.txt", "[^:]+: (\\d+) (\\S+) (\\S+) -> (\\S+ \\S+) -> (\\S+)")) {
    SCOPED_TRACE(row[0]);
    const int column = std::stoi(row[1]);
    SetCell(4, column - 1, row[2]);
    SetCell(4, column, row[3]);
    changed.clear();
    Click(4, column);
    EXPECT_EQ(Cell(4, column - 1) + ' ' + Cell(4, column), row[4]);
    QTest::keyClick(&grid, Qt::Key_Space);
    EXPECT_EQ(Cell(4, column), row[5]);
    EXPECT_EQ(changed.count(), 2);
  }
  SetCell(4, 3, "OFF");
  SetCell(4, 6, "OFF");
  Click(4, 6);
  EXPECT_EQ(Cell(4, 6), "OFF") << "without a tone there is no tail to cut";
}

TEST_F(ChannelTest, OnlyALeftReleaseOnACellCounts) {
  QWidget* const cells = grid.viewport();
  Click(1, 12, Qt::RightButton);
  QTest::mousePress(cells, Qt::LeftButton, {}, Centre(1, 12));
  QTest::mouseRelease(cells, Qt::LeftButton, {}, {50, -5});
  QTest::mousePress(cells, Qt::LeftButton, {}, Centre(1, 12));
  grid.hide(); // by a shortcut
  QTest::mouseRelease(cells, Qt::LeftButton, {}, Centre(1, 12));
  grid.show();
  EXPECT_EQ(changed.count(), 0);
  QTest::mousePress(cells, Qt::LeftButton, {}, Centre(1, 12));
  QTest::mouseMove(cells, Centre(5, 5));
  QTest::mouseRelease(cells, Qt::LeftButton, {}, Centre(5, 5));
  EXPECT_EQ(Cell(1, 12), "ON") << "the cell that was pressed";
  QTest::mouseDClick(cells, Qt::LeftButton, {}, Centre(1, 12)); // only the second press of a double click
  QTest::mouseRelease(cells, Qt::LeftButton, {}, Centre(1, 12));
  EXPECT_EQ(Cell(1, 12), "OFF");
}

TEST_F(ChannelTest, KeysMoveWithinTheCheckBoxesAndTabLeavesThem) {
  Get<QCheckBox>("chkCH(1)").setChecked(true); // its "No Tx" is disabled
  for (const Row& row : RowsOf(CASES "box_keys.txt", "(\\S+) (\\S+) -> ?(.*)")) {
    Get<QWidget>(row[1].c_str()).setFocus();
    QTest::keySequence(window.focusWidget(), QKeySequence(QString::fromStdString(row[2])));
    EXPECT_EQ(window.focusWidget()->objectName().toStdString(), row[3]) << row[0];
  }
}

} // namespace
} // namespace mr4500x
