// The grid's cells: load and store, colours, clicks and keys, measures.
#include "channel_fixture.h"

#include "cell_colours.h"

#include <QHeaderView>
#include <QLabel>

namespace mr4500x {
namespace {

TEST_F(ChannelFrameTest, StoresWhatWasLoadedAndNotifiesOncePerChangedBox) {
  channels[1].noCh = true;
  channels[1].noTx = true;
  channels[5].noTx = true;
  channels[7].cells[3] = "CTC#77"; // a tone that no list has
  frame.LoadChannelGrid(channels);
  EXPECT_EQ(changes, 3);
  std::array<ChannelTexts, ChannelCount> stored;
  frame.StoreChannelGrid(stored);
  EXPECT_EQ(stored, channels);
  frame.LoadChannelGrid(channels);
  EXPECT_EQ(changes, 3);
}

TEST_F(ChannelFrameTest, ColoursFollowTheCheckBoxes) {
  const QRgb hidden = frame.palette().color(QPalette::Base).rgb();
  const QRgb grey = frame.palette().color(QPalette::Disabled, QPalette::Text).rgb();
  struct Case {
    bool noCh, noTx;
    const char* tailCut;
    QRgb receive, tail, transmit, both;
  };
  for (const Case& c : {Case{false, false, "ON", GreenText, GreenText, TealText, NavyText},
                        Case{false, false, "OFF", GreenText, grey, TealText, NavyText},
                        Case{false, true, "ON", GreenText, GreenText, hidden, NavyText},
                        Case{true, false, "ON", hidden, hidden, hidden, hidden},
                        Case{true, true, "OFF", hidden, hidden, hidden, hidden}}) {
    SetCell(3, 6, c.tailCut);
    Box("chkCH", 3).setChecked(!c.noCh);
    Box("chkTx", 3).setChecked(c.noTx);
    QTest::mouseClick(&Box("chkCH", 3), Qt::LeftButton, {}, Box("chkCH", 3).rect().center());
    ASSERT_EQ(Box("chkCH", 3).isChecked(), c.noCh);
    EXPECT_EQ(Box("chkTx", 3).isEnabled(), !c.noCh);
    for (int column = 1; column < 15; ++column) {
      const QRgb expected = column == 6 ? c.tail : column < 6 ? c.receive : column < 12 ? c.transmit : c.both;
      EXPECT_EQ(ColourOf(3, column).rgb(), expected) << column << c.noCh << c.noTx << c.tailCut;
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
    const QImage cell = grid->viewport()->grab(grid->visualRect(grid->currentIndex()).adjusted(3, 3, -3, -3)).toImage();
    for (int y = 0; y < cell.height(); ++y) {
      for (int x = 0; x < cell.width(); ++x) {
        ASSERT_EQ(cell.pixelColor(x, y).rgb(), palette.color(QPalette::Base).rgb());
      }
    }
    EXPECT_GT(std::abs(ColourOf(1, 12).lightnessF() - palette.color(QPalette::Base).lightnessF()), 0.3F);
    const QColor frameColour = grid->grab().toImage().pixelColor(grid->viewport()->mapTo(grid, QPoint(0, 0)) +
                                                                 grid->visualRect(grid->currentIndex()).topLeft());
    EXPECT_EQ(frameColour.rgb(), grid->palette().color(QPalette::Highlight).rgb());
  }
}

TEST_F(ChannelFrameTest, EachClickOrSpaceTogglesTheCell) {
  struct Case {
    int column;
    const char *before, *after;
  };
  for (const auto& [column, before, after] :
       {Case{5, "AND", "OR"}, Case{5, "OR", "AND"}, Case{6, "ON", "OFF"}, Case{6, "OFF", "ON"},
        Case{11, "Permit", "Prohibit"}, Case{11, "Prohibit", "Permit"}, Case{12, "OFF", "ON"}, Case{12, "ON", "OFF"},
        Case{13, "25", "12.5"}, Case{13, "12.5", "25"}}) {
    for (const bool bySpace : {false, true}) {
      SetCell(4, column, before);
      const QColor colour = ColourOf(4, column);
      changes = 0;
      if (bySpace) {
        QTest::keyClick(grid, Qt::Key_Space);
      } else {
        Click(4, column);
      }
      EXPECT_EQ(Cell(4, column), after) << column;
      EXPECT_EQ(ColourOf(4, column), colour);
      EXPECT_EQ(changes, 1);
    }
  }
  SetCell(4, 3, "OFF");
  SetCell(4, 6, "ON");
  Click(4, 6);
  EXPECT_EQ(Cell(4, 6), "OFF");
  EXPECT_EQ(ColourOf(4, 6), frame.palette().color(QPalette::Disabled, QPalette::Text));
}

TEST_F(ChannelFrameTest, TwoQuickClicksToggleTwice) {
  Click(1, 12);
  QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, Centre(1, 12)); // the second press alone
  QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, Centre(1, 12));
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(Cell(1, 12), "OFF");
}

TEST_F(ChannelFrameTest, TheStepToggleRoundsAndClampsItsFrequency) {
  struct Case {
    const char *frequency, *step, *newFrequency, *newStep;
  };
  for (const int first : {1, 7}) {
    for (const Case& c :
         {Case{"450.01250", "2.5", "450.01250", "6.25"}, Case{"450.00625", "6.25", "450.00500", "2.5"},
          Case{"450.00250", "2.5", "450.00000", "6.25"}, Case{"469.99750", "2.5", "469.99375", "6.25"},
          Case{"136.00000", "6.25", "440.00000", "2.5"}, Case{"520.00000", "6.25", "469.99750", "2.5"}}) {
      SetCell(2, first, c.frequency);
      SetCell(2, first + 1, c.step);
      Click(2, first + 1);
      EXPECT_EQ(Cell(2, first), c.newFrequency);
      EXPECT_EQ(Cell(2, first + 1), c.newStep);
      EXPECT_EQ(Cell(2, 8 - first), "450.00000");
      SetCell(2, first, "450.00000");
    }
  }
}

TEST_F(ChannelFrameTest, UnusedCellsTakeNoEdit) {
  Box("chkTx", 2).setChecked(true);
  Box("chkCH", 3).setChecked(true);
  std::array<ChannelTexts, ChannelCount> before, after;
  frame.StoreChannelGrid(before);
  changes = 0;
  for (int column = 1; column < 15; ++column) {
    Click(3, column);
    if (column >= 7 && column <= 11) Click(2, column);
    EXPECT_TRUE(frequency->isHidden() && tone->isHidden());
  }
  EXPECT_EQ(changes, 14 + 5);
  frame.StoreChannelGrid(after);
  EXPECT_EQ(before, after);
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
  QTest::mousePress(cells, Qt::LeftButton, {}, Centre(1, 12));
  EXPECT_EQ(changes, 0);
  QTest::mouseMove(cells, Centre(5, 5));
  QTest::mouseRelease(cells, Qt::LeftButton, {}, Centre(5, 5));
  EXPECT_EQ(Cell(1, 12), "ON"); // the cell that was pressed
  EXPECT_EQ(changes, 1);
}

TEST_F(ChannelFrameTest, EnterWalksThroughAllCellsAndOtherKeysCommit) {
  for (int row = 0; row < 16; ++row) {
    for (int column = 0; column < 14; ++column) {
      ASSERT_EQ(grid->currentRow() * 14 + grid->currentColumn(), row * 14 + column);
      QTest::keyClick(grid, column % 2 == 0 ? Qt::Key_Return : Qt::Key_Enter);
    }
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

TEST_F(ChannelFrameTest, ResettingSelectiveCallsTouchesNothingElse) {
  for (ChannelTexts& channel : channels) {
    for (std::size_t column = 1; column < GridColumnCount; ++column) {
      channel.cells[column] = "TTS 1";
    }
  }
  frame.LoadChannelGrid(channels);
  frame.ResetSelcallCells();
  for (ChannelTexts& channel : channels) {
    channel.cells[4] = channel.cells[10] = channel.cells[14] = "OFF";
  }
  std::array<ChannelTexts, ChannelCount> stored;
  frame.StoreChannelGrid(stored);
  EXPECT_EQ(stored, channels);
}

TEST_F(ChannelFrameTest, MeasuresFollowTheFont) {
  constexpr std::array twips = {893, 539, 939, 847, 732, 508, 893, 539, 939, 847, 654, 508, 616, 616};
  for (const int points : {6, 10, 24}) {
    QFont font = frame.font();
    font.setPointSize(points);
    window.setFont(font);
    QTest::qWait(1);
    const double scale = grid->columnWidth(2) / 939.0;
    for (int column = 0; column < 14; ++column) {
      EXPECT_NEAR(grid->columnWidth(column), twips[static_cast<std::size_t>(column)] * scale, 1.0);
      int widestWord = 0;
      for (const QString& word : grid->horizontalHeaderItem(column)->text().split(' ')) {
        widestWord = std::max(widestWord, grid->horizontalHeader()->fontMetrics().horizontalAdvance(word));
      }
      EXPECT_LT(widestWord, grid->columnWidth(column));
    }
    EXPECT_LT(grid->fontMetrics().horizontalAdvance("450.00000") + 4, grid->columnWidth(0));
    EXPECT_GE(grid->horizontalHeader()->height(), 2 * grid->fontMetrics().height());
    for (int row = 1; row <= 16; ++row) {
      const int middle = grid->viewport()->mapTo(&frame, Centre(row, 1)).y();
      for (const char* const array : {"chkCH", "chkTx"}) {
        EXPECT_NEAR(Box(array, row).geometry().center().y(), middle, 1) << points;
      }
    }
  }
}

} // namespace
} // namespace mr4500x
