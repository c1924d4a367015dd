#include "editor_fixture.h"
#include "random_image.h"

#include <QHeaderView>
#include <QScrollArea>

namespace mr4500x {
namespace {

struct PanelTest : EditorTest {
  QTableWidget& channels = Get<QTableWidget>("gridChannel");
};

// The window loses and adds nothing: a fill and a collect through its controls change an image exactly as without them.
TEST_F(PanelTest, FillAndCollectThroughTheControls) {
  std::mt19937 random(6);
  messages.whileShown = [&] { EXPECT_TRUE(panel.updatesEnabled()) << "a message over a panel that is not drawn"; };
  int conflicts = 0, completed = 0;
  for (int round = 0; round < 200; ++round) {
    image = RandomImage(random);
    if (round % 2 == 0) image.ResetTimeBlock[0] = 0;
    RadioImage expected = image;
    const Decoded result = Decode(expected, texts, panel.Shown().keys);
    SettleAfterFill(expected);
    Encode(result.configuration, expected, texts);
    if (round % 2 == 0) expected.ResetTimeBlock[0] = 0;

    EXPECT_EQ(panel.Fill(), DecodeEnd::Complete);
    EXPECT_EQ(messages.Taken().size(), static_cast<std::size_t>(result.keyConflicts)) << round;
    conflicts += result.keyConflicts;
    panel.Collect();
    ASSERT_EQ(image, expected) << round;
    KeyProgram keys = result.configuration.keys;
    completed += CompleteEmergencyPair(keys) ? 1 : 0;
    EXPECT_EQ(panel.Shown().keys, keys) << round;
  }
  EXPECT_GT(std::min(conflicts, completed), 10);
}

constexpr int RxSelCall = 3, TxSelCall = 9, GroupCall = 13; // columns of the table

// The image still holds the codes of the mode that it was filled with. A refused entry restores the filled limit, which
// is then no longer the current one.
TEST_F(PanelTest, ANewLowerLimitResetsTheChannelsIfTheUserAgrees) {
  WriteSetting(image, Setting::SelcallMode, 0);
  image.ChannelBlock(0, 0) |= 0x04;
  image.SelCallCodeBlock.bytes.fill(0x33);
  panel.Fill();
  EXPECT_EQ(Cell(channels, 0, RxSelCall), "5T 33333");
  List("cboRadio(0)").setCurrentText("TTS");
  const std::string question = "!|Frequency Band Change|Change the lower limit value, all data will be initiated. Do "
                               "you want to continue?|YN";
  const std::tuple<const char*, std::string, std::string, std::size_t> cases[] = {{"100", "440", "136", 1},
                                                                                  {"", "136", "440", 2}};
  for (const auto& [typed, before, after, messageCount] : cases) {
    for (const bool yes : {false, true}) {
      SCOPED_TRACE(std::string(typed) + (yes ? " yes" : " no"));
      messages.answer = yes ? Answer::Yes : Answer::No;
      for (const int column : {RxSelCall, TxSelCall, GroupCall})
        channels.item(0, column)->setText("TTS 3");
      for (int column = 0; column < channels.columnCount(); ++column)
        channels.item(9, column)->setText(column % 6 == 1 ? "2.5" : "other"); // both steps
      Type("txtFreqBandL", typed);
      GoElsewhere();
      EXPECT_EQ(messages.shown.size(), messageCount) << "the refusal and the question";
      EXPECT_EQ(messages.Taken().back(), question);
      EXPECT_EQ(Text("txtFreqBandL"), yes ? after : before);
      std::string cells;
      for (int column = 0; yes && column < channels.columnCount(); ++column)
        cells += Cell(channels, 9, column) + ' ';
      EXPECT_EQ(cells,
                yes ? after + ".00000 6.25 OFF OFF OR OFF " + after + ".00000 6.25 OFF OFF Permit OFF 25 OFF " : "");
      for (const int column : {RxSelCall, TxSelCall, GroupCall})
        EXPECT_EQ(Cell(channels, 0, column), yes ? "OFF" : "TTS 3") << column;
    }
  }
}

// A message waits for the release of a click that leaves an invalid entry, and the click counts after it.
TEST_F(PanelTest, AClickThatRaisesAMessageStillCounts) {
  const struct {
    const char *name, *box, *keys;
    bool function;
  } cases[] = {{"error", "txtFreqBandU", "", false},
               {"question, answered with Yes", "txtFreqBandL", "400", false},
               {"channel grid", "txtChFreq", "4.6.0", false},
               {"ID", "txtANI", "", true},
               {"TTS table", "txtTTSFreq", "", true}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    panel.FillReset({});
    row.function ? panel.ShowFunctionView() : panel.ShowChannelView();
    if (row.box == std::string("txtChFreq")) Click(channels, 0, 0);
    if (row.box == std::string("txtTTSFreq")) Click(ttsTable, 0, 1);
    Type(row.box, row.keys).insert(*row.keys == 0 && row.function ? "x" : "");
    auto& clicked = Get<QCheckBox>(row.function ? "chkSignal" : "chkCH(3)");
    const bool before = clicked.isChecked();
    bool released = false;
    messages.answer = Answer::Yes;
    messages.whileShown = [&] {
      EXPECT_TRUE(released);
      EXPECT_EQ(clicked.isChecked(), before);
    };
    const QPoint place(8, clicked.height() / 2);
    QTest::mousePress(&clicked, Qt::LeftButton, {}, place);
    QCoreApplication::processEvents();
    QTest::keyClick(&clicked, Qt::Key_Space); // does not come in between
    released = true;
    QTest::mouseRelease(&clicked, Qt::LeftButton, {}, place);
    EXPECT_EQ(messages.Taken().size(), 1U);
    EXPECT_TRUE(clicked.isChecked() != before && !clicked.isDown());
  }
}

// On a small screen the last cell comes into view, and so do the labels of its row and column.
TEST_F(PanelTest, TheCurrentCellKeepsItsLabelsInAScrolledPanel) {
  QScrollArea area;
  area.setWidget(&panel);
  area.resize(300, 200);
  area.show();
  panel.show();
  QCoreApplication::processEvents();
  const int row = channels.rowCount() - 1, column = channels.columnCount() - 1;
  channels.setCurrentCell(row, column);
  const QPoint cell = channels.visualItemRect(channels.item(row, column)).center();
  EXPECT_TRUE(channels.viewport()->visibleRegion().contains(cell));
  EXPECT_TRUE(channels.verticalHeader()->viewport()->visibleRegion().contains({1, cell.y()}));
  EXPECT_TRUE(channels.horizontalHeader()->viewport()->visibleRegion().contains({cell.x(), 1}));
  area.takeWidget()->setParent(&window);
}

} // namespace
} // namespace mr4500x
