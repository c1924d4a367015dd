// A channel frame in a window of its own. Rows and columns count as the grid shows them: row 0 and column 0 hold the
// labels.
#pragma once

#include "channel_frame.h"
#include "editor_fixture.h"

#include <QCheckBox>

namespace mr4500x {

struct ChannelFrameTest : testing::Test {
  explicit ChannelFrameTest(char separator = '.')
      : frame(*new ChannelFrame(
            BuildFieldTexts(separator), messages, [this] { return band; }, [this] { return ttsMode; })) {
    values.channels.fill({.cells = {"", "450.00000", "2.5", "CTC88.5", "OFF", "AND", "ON", "450.00000", "2.5", "DCS023",
                                    "OFF", "Permit", "OFF", "25", "OFF"}});
    frame.Fill(values);
    QObject::connect(&frame, &ChannelFrame::Changed, &window, [this] { ++changes; });
    QObject::connect(&frame, &ChannelFrame::OtherKeyPressed, &window, [this] { ++othersCommitted; });
    grid->setFocus();
  }
  QCheckBox& Box(const char* array, int row) {
    return window.Get<QCheckBox>(QStringLiteral("%1(%2)").arg(array).arg(row - 1));
  }
  std::string Cell(int row, int column) const { return grid->item(row - 1, column - 1)->text().toStdString(); }
  void SetCell(int row, int column, const std::string& text) const {
    grid->item(row - 1, column - 1)->setText(QString::fromStdString(text));
  }
  QRgb ColourOf(int row, int column) const { return grid->item(row - 1, column - 1)->foreground().color().rgb(); }
  QPoint Centre(int row, int column) const { return grid->visualItemRect(grid->item(row - 1, column - 1)).center(); }
  void Click(int row, int column, Qt::MouseButton button = Qt::LeftButton) const {
    QTest::mouseClick(grid->viewport(), button, {}, Centre(row, column));
  }
  void Type(const char* keys) const { QTest::keyClicks(frequency, keys); }
  std::array<ChannelTexts, ChannelCount> Stored() const {
    Configuration stored;
    frame.Collect(stored);
    return stored.channels;
  }

  ScriptedMessages messages;
  Band band{440, 470};
  bool ttsMode = true;
  int othersCommitted = 0;
  int changes = 0;
  Configuration values;
  ChannelFrame& frame;
  FrameWindow window{&frame};
  QTableWidget* grid = &window.Get<QTableWidget>("gridChannel");
  QLineEdit* frequency = &window.Box("txtChFreq");
  QComboBox* tone = &window.List("cboCTCDCS");
};

} // namespace mr4500x
