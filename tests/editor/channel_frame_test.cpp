// The grid's cells: load and store, colours, clicks and keys, measures.
#include "channel_fixture.h"
#include "look.h"

#include <QHeaderView>

namespace mr4500x {
namespace {

TEST_F(ChannelFrameTest, StoresWhatWasLoadedAndResetsOnlySelectiveCalls) {
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    for (std::size_t column = 1; column < GridColumnCount; ++column) {
      channels[i].cells[column] = std::to_string(100 * i + column);
    }
  }
  channels[1].noCh = channels[1].noTx = channels[5].noTx = true;
  for (const char* const time : {"first load", "nothing new"}) {
    frame.LoadChannelGrid(channels);
    EXPECT_EQ(changes, 3) << time; // one for each changed box
    EXPECT_EQ(Stored(), channels) << time;
  }
  frame.ResetSelcallCells();
  for (ChannelTexts& channel : channels) {
    channel.cells[4] = channel.cells[10] = channel.cells[14] = "OFF";
  }
  EXPECT_EQ(Stored(), channels);
}

TEST_F(ChannelFrameTest, ColoursFollowTheCheckBoxes) {
  const QRgb hidden = frame.palette().color(QPalette::Base).rgb();
  const QRgb grey = frame.palette().color(QPalette::Disabled, QPalette::Text).rgb();
  struct Case {
    const char* name;
    bool noCh, noTx;
    const char* tailCut;
    QRgb receive, tail, transmit, both;
  };
  for (const Case& c : {Case{"in use", false, false, "ON", GreenText, GreenText, TealText, NavyText},
                        Case{"no tail cut", false, false, "OFF", GreenText, grey, TealText, NavyText},
                        Case{"no Tx", false, true, "ON", GreenText, GreenText, hidden, NavyText},
                        Case{"no CH", true, false, "ON", hidden, hidden, hidden, hidden},
                        Case{"neither", true, true, "OFF", hidden, hidden, hidden, hidden}}) {
    SCOPED_TRACE(c.name);
    SetCell(3, 6, c.tailCut);
    Box("chkCH", 3).setChecked(!c.noCh);
    Box("chkTx", 3).setChecked(c.noTx);
    QTest::mouseClick(&Box("chkCH", 3), Qt::LeftButton, {}, Box("chkCH", 3).rect().center());
    EXPECT_EQ(Box("chkTx", 3).isEnabled(), !c.noCh);
    for (int column = 1; column < 15; ++column) {
      const QRgb expected = column == 6 ? c.tail : column < 6 ? c.receive : column < 12 ? c.transmit : c.both;
      EXPECT_EQ(ColourOf(3, column), expected) << column;
    }
  }
}

TEST_F(ChannelFrameTest, HiddenTextsStayHiddenUnderTheFocusAndOnADarkDesktop) {
  Box("chkCH", 2).setChecked(true);
  QPalette dark(QColor(50, 50, 50));
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  for (const QPalette& palette : {frame.palette(), dark}) {
    window.setPalette(palette);
    QTest::qWait(1);
    grid->setCurrentCell(1, 0);
    const QImage cell = grid->viewport()->grab(grid->visualRect(grid->currentIndex())).toImage();
    const QRect inside = cell.rect().adjusted(3, 3, -3, -3);
    QImage plain(inside.size(), cell.format());
    plain.fill(palette.color(QPalette::Base));
    EXPECT_EQ(cell.copy(inside), plain);
    EXPECT_EQ(cell.pixel(0, 0), grid->palette().color(QPalette::Highlight).rgb()) << "the frame of the current cell";
    EXPECT_GT(std::abs(QColor(ColourOf(1, 12)).lightnessF() - palette.color(QPalette::Base).lightnessF()), 0.3F);
  }
}

TEST_F(ChannelFrameTest, EachClickOrSpaceTogglesTheCell) {
  const std::tuple<int, const char*, const char*> cases[] = {
      {5, "AND", "OR"}, {6, "ON", "OFF"}, {11, "Permit", "Prohibit"}, {12, "OFF", "ON"}, {13, "25", "12.5"}};
  for (const auto& [column, before, after] : cases) {
    SCOPED_TRACE(before);
    SetCell(4, column, before);
    const QRgb colour = ColourOf(4, column);
    changes = 0;
    Click(4, column);
    EXPECT_EQ(Cell(4, column), after);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(Cell(4, column), before);
    EXPECT_EQ(ColourOf(4, column), colour);
    EXPECT_EQ(changes, 2);
  }
  SetCell(4, 3, "OFF");
  SetCell(4, 6, "ON");
  Click(4, 6);
  EXPECT_EQ(Cell(4, 6), "OFF") << "without a tone there is no tail to cut";
  EXPECT_EQ(ColourOf(4, 6), frame.palette().color(QPalette::Disabled, QPalette::Text).rgb());
}

TEST_F(ChannelFrameTest, TheStepToggleRoundsAndClampsItsFrequency) {
  for (const int first : {1, 7}) {
    SetCell(2, first, "450.00625");
    for (const auto& [step, stored] : {std::pair{"6.25", "450.00625"}, std::pair{"2.5", "450.00500"}}) {
      Click(2, first + 1);
      EXPECT_EQ(Cell(2, first + 1), step);
      EXPECT_EQ(Cell(2, first), stored) << step;
    }
    SetCell(2, first, "520.00000");
    Click(2, first + 1);
    EXPECT_EQ(Cell(2, first), "469.99375");
    SetCell(2, first, "450.00000");
    EXPECT_EQ(Cell(2, 8 - first), "450.00000");
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
  Click(2, 12);
  EXPECT_EQ(Cell(2, 12), "ON");
}

TEST_F(ChannelFrameTest, OnlyALeftReleaseOnACellCounts) {
  QWidget* const cells = grid->viewport();
  Click(1, 12, Qt::RightButton);
  QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {}, {grid->columnWidth(0) * 2, 5});
  QTest::mouseClick(grid->verticalHeader()->viewport(), Qt::LeftButton, {}, {5, 5});
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
  EXPECT_EQ(grid->currentRow() * 14 + grid->currentColumn(), 0);
  QTest::keyClick(grid, Qt::Key_Down);
  EXPECT_EQ(grid->currentRow(), 1);
  EXPECT_EQ(changes + othersCommitted, 0);
  QTest::keyClick(grid, Qt::Key_X);
  EXPECT_EQ(othersCommitted, 1);
  QTest::keyClick(grid, Qt::Key_Tab);
  EXPECT_EQ(window.focusWidget()->objectName(), "chkCH(0)");
}

TEST_F(ChannelFrameTest, MeasuresFollowTheFont) {
  for (const int points : {6, 24}) {
    SCOPED_TRACE(points);
    QFont font = frame.font();
    font.setPointSize(points);
    window.setFont(font);
    QTest::qWait(1);
    EXPECT_NEAR(grid->columnWidth(1) / 539.0, grid->columnWidth(2) / 939.0, 0.01) << "the proportions stay";
    EXPECT_LT(grid->fontMetrics().horizontalAdvance("450.00000") + 4, grid->columnWidth(0));
    EXPECT_GE(grid->horizontalHeader()->height(), 2 * grid->fontMetrics().height());
    for (const int row : {1, 16}) {
      const QRect cell = grid->visualItemRect(grid->item(row - 1, 2));
      const QPoint corner = grid->viewport()->mapTo(&frame, cell.topLeft());
      EXPECT_NEAR(Box("chkCH", row).geometry().center().y(), corner.y() + cell.height() / 2, 1);
      EXPECT_NEAR(Box("chkTx", row).geometry().center().y(), corner.y() + cell.height() / 2, 1);
      Click(row, 3);
      EXPECT_LT((tone->pos() - corner).manhattanLength(), cell.height() / 2) << "the editor covers its cell";
      EXPECT_NEAR(tone->width(), cell.width(), 4);
      EXPECT_EQ(tone->height(), grid->rowHeight(0));
    }
  }
}

} // namespace
} // namespace mr4500x
