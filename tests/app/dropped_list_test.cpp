// Lists of channels that are dropped on the window.
#include "program_fixture.h"

namespace mr4500x {
namespace {

TEST_F(ProgramTest, ImportsADroppedListOfChannelsAsOneStepOrNotAtAll) {
  QTableWidget& grid = *window->findChild<QTableWidget*>("gridChannel");
  const auto cell = [&](int row, int column) { return grid.item(row - 1, column - 1)->text().toStdString(); };
  const std::string refused = "!|Import Channels|Nothing was changed. These values are not allowed:\n\n";
  const std::string title = "|Import Channels|";
  // name of the file or "" for a text, its content, then the frequency of CH3, the message
  const std::tuple<const char*, std::string, std::string, std::string> cases[] = {
      {"a.CSV", "number,rx_freq,rx_step\n3,445.0025,2.5\n4,446,\n", "445.00250 2.5", "Channels imported: 2"},
      {"", "number;rx_freq\n3;445,5\n", "445.50000 6.25", "Channels imported: 1"},
      {"b.csv", "Location,Name,Frequency,Power\n3,Gate,446,1\n", "446.00000 6.25",
       "i" + title + "The channels were imported, but the radio has no settings for these columns:\n\nName\nPower"},
      {"c.csv", "number,rx_freq,tail_cut\n17,,\n3,445.5,\n4,500,maybe\n", "440.00000 6.25",
       refused + "Line 2: number=17: allowed: 1 to 16\nLine 4: rx_freq=500: allowed: 440 to 469.99375 MHz\n"
                 "Line 4: tail_cut=maybe: allowed: one of OFF"},
      {"large.csv", "number\n" + std::string(std::size_t{1} << 20, '\n'), "440.00000 6.25",
       "!" + title + "The file " + Path("large.csv") + " can't be read."},
      {"none.csv", "", "440.00000 6.25", "!" + title + "The file " + Path("none.csv") + " can't be read."},
  };
  for (const auto& [name, content, expected, reported] : cases) {
    SCOPED_TRACE(name);
    QMimeData data;
    if (*name == '\0') data.setData("text/csv", QByteArray::fromStdString(content));
    if (!content.empty() && *name != '\0') Put(name, content);
    if (*name != '\0') data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Path(name)))});
    Drop(data);
    EXPECT_EQ(cell(3, 1) + ' ' + cell(3, 2), expected);
    const Lines shown = Happened();
    EXPECT_EQ(shown.empty() ? Status(1) : shown.front(), reported);
    if (expected == "440.00000 6.25") continue;
    EXPECT_TRUE(window->State().ModifiedFlag);
    QTest::keyClick(&grid, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Status(1), "Undone: Import Channels");
    EXPECT_EQ(cell(3, 1) + ' ' + cell(3, 2), "440.00000 6.25");
  }
  grid.setFocus();
  grid.setCurrentCell(0, 0);
  QTest::keyClick(&grid, Qt::Key_Space);
  QTest::keyClicks(QApplication::focusWidget(), "4.6.0"); // is refused before the import
  QMimeData data;
  data.setData("text/csv", "number,rx_freq\n3,446\n");
  Drop(data);
  EXPECT_EQ(Happened(), Lines{"!|Error|Frequency Invalid!"});
  EXPECT_EQ(cell(1, 1) + ' ' + cell(3, 1), "440.00000 446.00000");
}

} // namespace
} // namespace mr4500x
