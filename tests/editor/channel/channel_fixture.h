// A channel frame in a window of its own, with a scripted message box and clipboard. Rows and columns count as the grid
// shows them: row 0 and column 0 hold the labels.
#pragma once

#include "channel_frame.h"
#include "editor_fakes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mr4500x {

class ChannelFrameTest : public ::testing::Test {
protected:
  explicit ChannelFrameTest(char separator = '.') : frame(BuildFieldTexts(separator), Services(), &window) {
    window.setLayout(new QVBoxLayout);
    window.layout()->addWidget(&frame);
    window.layout()->addWidget(&elsewhere);
    for (std::size_t i = 0; i < ChannelCount; ++i) {
      channels[i].cells = {"",    "450.00000", "2.5", "CTC88.5", "OFF", "AND", "ON", "450.00000",
                           "2.5", "DCS023",    "OFF", "Permit",  "OFF", "25",  "OFF"};
    }
    frame.LoadChannelGrid(channels);
    QObject::connect(&frame, &ChannelFrame::Changed, &window, [this] { ++changes; });
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    grid->setFocus();
  }

  ChannelFrameServices Services() {
    return {messages, clipboard, [this] { return band; }, [this] { return ttsMode; }, [this] { ++othersCommitted; }};
  }
  template<class T>
  T* Find(const QString& name) const {
    return frame.findChild<T*>(name);
  }
  QCheckBox& Box(const char* array, int row) const {
    return *Find<QCheckBox>(QString("%1(%2)").arg(array).arg(row - 1));
  }

  std::string Cell(int row, int column) const { return grid->item(row - 1, column - 1)->text().toStdString(); }
  void SetCell(int row, int column, const std::string& text) const {
    grid->item(row - 1, column - 1)->setText(QString::fromStdString(text));
  }
  QColor ColourOf(int row, int column) const { return grid->item(row - 1, column - 1)->foreground().color(); }
  QPoint Centre(int row, int column) const { return grid->visualItemRect(grid->item(row - 1, column - 1)).center(); }
  void Click(int row, int column, Qt::MouseButton button = Qt::LeftButton) const {
    QTest::mouseClick(grid->viewport(), button, {}, Centre(row, column));
  }
  void Type(const char* keys) const { QTest::keyClicks(frequency, keys); }

  ScriptedMessages messages;
  MemoryClipboard clipboard;
  Band band{440, 470};
  bool ttsMode = true;
  int othersCommitted = 0;
  int changes = 0;
  std::array<ChannelTexts, ChannelCount> channels;
  QWidget window;
  QPushButton elsewhere;
  ChannelFrame frame;
  QTableWidget* grid = Find<QTableWidget>("gridChannel");
  QLineEdit* frequency = Find<QLineEdit>("txtChFreq");
  QComboBox* tone = Find<QComboBox>("cboCTCDCS");
};

} // namespace mr4500x
