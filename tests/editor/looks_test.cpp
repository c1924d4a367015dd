// Both views in light and dark, in a small and a large font.
#include "editor_fixture.h"

#include <QLabel>

#include <algorithm>
#include <cmath>

namespace mr4500x {
namespace {

// Returns the contrast by the web's accessibility guidelines, from 1 to 21. A text needs 4.5.
double Contrast(const QColor& one, const QColor& other) {
  const auto luminance = [](const QColor& colour) {
    const auto linear = [](double part) {
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
  };
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

struct LooksTest : ChannelTest {
  // In the panel.
  QRect Frame(const char* objectName) {
    auto& frame = Get<QWidget>(objectName);
    return {frame.mapTo(&panel, QPoint()), frame.size()};
  }
  static void ExpectFitting(const QTableWidget& table) {
    for (int row = 0; row < table.rowCount(); ++row)
      for (int column = 0; column < table.columnCount(); ++column)
        EXPECT_TRUE(table.isColumnHidden(column) ||
                    table.fontMetrics().horizontalAdvance(table.item(row, column)->text()) <= table.columnWidth(column))
            << EditorTest::Cell(table, row, column);
    const QRect last = table.visualItemRect(table.item(table.rowCount() - 1, table.columnCount() - 1));
    EXPECT_EQ(last.bottomRight(), table.viewport()->rect().bottomRight() - QPoint(1, 1)) << "the grid line";
  }
  // The design's olive on white has the lowest contrast.
  static void ExpectReadableCells(QTableWidget& table) {
    const QColor base = table.palette().color(QPalette::Base);
    const QPoint corner(1, 1); // of the first visible cell
    table.setCurrentIndex(table.indexAt(corner));
    table.setFocus();
    const QColor frame = table.viewport()->grab().toImage().pixelColor(corner);
    EXPECT_GE(Contrast(frame, base), 3) << "the frame that shows where keys act";
    for (int column = 0; column < table.columnCount(); ++column) {
      const QTableWidgetItem& cell = *table.item(0, column);
      const QBrush own = cell.foreground();
      const QColor text = own.style() == Qt::NoBrush ? table.palette().color(QPalette::Text) : own.color();
      EXPECT_GE(Contrast(text, base), 4.1) << cell.text().toStdString() << " in column " << column;
    }
  }
  void ExpectFittingLabels() {
    for (const QLabel* const label : panel.findChildren<QLabel*>())
      EXPECT_TRUE(!label->isVisible() || label->width() >= label->sizeHint().width()) << label->text().toStdString();
  }
};

TEST_F(LooksTest, TextsFitAndCanBeReadAndFramesShareTheirEdges) {
  QPalette darkColours(QColor(50, 54, 58), QColor(42, 46, 50));
  darkColours.setColor(QPalette::Base, QColor(61, 61, 61));
  darkColours.setColor(QPalette::Highlight, QColor(18, 96, 138));
  for (const bool dark : {false, true}) {
    window.setPalette(dark ? darkColours : QApplication::palette());
    for (const int points : {8, 14}) {
      SCOPED_TRACE(std::to_string(points) + (dark ? " points, dark" : " points, light"));
      QFont font = window.font();
      font.setPointSize(points);
      window.setFont(font);
      panel.ShowChannelView();
      QCoreApplication::processEvents(); // the grids take their new looks after the other controls
      EXPECT_TRUE(QTest::qWaitFor([&] { return Frame("fraRecord").right() == Frame("fraChannel").right(); }));
      ExpectFitting(grid);
      ExpectFittingLabels();
      ExpectReadableCells(grid);
      EXPECT_EQ(Frame("fraModel").left(), Frame("fraChannel").left());

      panel.ShowFunctionView();
      ExpectFitting(ttsTable);
      ExpectFittingLabels();
      ExpectReadableCells(ttsTable);
      for (const char* const frame : {"fraScan", "fraKey", "fraSelCall", "fraFive", "fraResetTime", "fraTuneSwitch"})
        EXPECT_EQ(Frame(frame).right(), panel.width() - 1 - Frame("fraRadio").left()) << frame;
      EXPECT_EQ(Frame("fraKey").bottom(), Frame("fraRadio").bottom());
      EXPECT_EQ(Frame("fraTuneSwitch").bottom(), Frame("fraTTS").bottom());
    }
  }
}

} // namespace
} // namespace mr4500x
