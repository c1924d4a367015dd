// The grid's cells: load and store, colours, clicks and keys.
#include "channel_fixture.h"

namespace mr4500x {
namespace {

TEST_F(ChannelFrameTest, TheCheckBoxesHideTheTextsOfUnusedCells) {
  const QRgb hidden = frame.palette().color(QPalette::Base).rgb();
  for (const auto& [noCh, noTx] : {std::pair{false, false}, {false, true}, {true, false}, {true, true}}) {
    Box("chkCH", 3).setChecked(!noCh);
    Box("chkTx", 3).setChecked(noTx);
    QTest::mouseClick(&Box("chkCH", 3), Qt::LeftButton, {}, Box("chkCH", 3).rect().center());
    EXPECT_EQ(Box("chkTx", 3).isEnabled(), !noCh);
    for (int column = 1; column < 15; ++column)
      EXPECT_EQ(ColourOf(3, column) == hidden, noCh || (noTx && column >= 7 && column <= 11)) << column << noCh << noTx;
  }
}

TEST_F(ChannelFrameTest, EachClickOrSpaceTogglesTheCell) {
  const std::tuple<int, const char*, const char*> cases[] = {
      {5, "AND", "OR"}, {6, "ON", "OFF"}, {11, "Permit", "Prohibit"}, {12, "OFF", "ON"}, {13, "25", "12.5"}};
  for (const auto& [column, before, after] : cases) {
    SetCell(4, column, before);
    changes = 0;
    Click(4, column);
    EXPECT_EQ(Cell(4, column), after);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(Cell(4, column), before);
    EXPECT_EQ(changes, 2) << before;
  }
  SetCell(4, 3, "OFF");
  SetCell(4, 6, "OFF");
  Click(4, 6);
  EXPECT_EQ(Cell(4, 6), "OFF") << "without a tone there is no tail to cut";
  for (const auto& [column, frequencyBefore, step, stored] : {std::tuple{1, "450.00625", "6.25", "450.00625"},
                                                              {1, "450.00625", "2.5", "450.00500"},
                                                              {7, "520.00000", "6.25", "469.99375"}}) {
    SetCell(2, column, frequencyBefore);
    Click(2, column + 1);
    EXPECT_EQ(Cell(2, column) + " " + Cell(2, column + 1), std::string(stored) + " " + step);
  }
}

TEST_F(ChannelFrameTest, UnusedCellsTakeNoEdit) {
  Box("chkTx", 2).setChecked(true);
  Box("chkCH", 3).setChecked(true);
  const auto before = Stored();
  changes = 0;
  for (int column = 1; column < 15; ++column) {
    Click(3, column);
    if (column >= 7 && column <= 11) Click(2, column);
    EXPECT_TRUE(frequency->isHidden() && tone->isHidden()) << column;
  }
  EXPECT_EQ(changes, 14 + 5);
  EXPECT_EQ(Stored(), before);
}

TEST_F(ChannelFrameTest, OnlyALeftReleaseOnACellCounts) {
  QWidget* const cells = grid->viewport();
  Click(1, 12, Qt::RightButton);
  QTest::mousePress(cells, Qt::LeftButton, {}, Centre(1, 12));
  QTest::mouseRelease(cells, Qt::LeftButton, {}, {50, -5});
  EXPECT_EQ(changes, 0);
  QTest::mousePress(cells, Qt::LeftButton, {}, Centre(1, 12));
  QTest::mouseMove(cells, Centre(5, 5));
  QTest::mouseRelease(cells, Qt::LeftButton, {}, Centre(5, 5));
  EXPECT_EQ(Cell(1, 12), "ON") << "the cell that was pressed";
  QTest::mouseDClick(cells, Qt::LeftButton, {}, Centre(1, 12)); // of two quick clicks, the second press alone
  QTest::mouseRelease(cells, Qt::LeftButton, {}, Centre(1, 12));
  EXPECT_EQ(Cell(1, 12), "OFF");
  EXPECT_EQ(changes, 2);
}

TEST_F(ChannelFrameTest, EnterWalksThroughAllCellsAndOtherKeysCommit) {
  for (int cell = 0; cell < 16 * 14; ++cell) {
    ASSERT_EQ(grid->currentRow() * 14 + grid->currentColumn(), cell);
    QTest::keyClick(grid, cell % 2 == 0 ? Qt::Key_Return : Qt::Key_Enter);
  }
  EXPECT_TRUE(grid->currentRow() == 0 && grid->currentColumn() == 0);
  EXPECT_EQ(changes + othersCommitted, 0);
  QTest::keyClick(grid, Qt::Key_X);
  EXPECT_EQ(othersCommitted, 1);
  QTest::keyClick(grid, Qt::Key_Tab);
  EXPECT_EQ(window.focusWidget()->objectName(), "chkCH(0)");
}

} // namespace
} // namespace mr4500x
