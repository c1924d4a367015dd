// Undo and redo by their keys.
#include "editor_fixture.h"
#include "wheel.h"

namespace mr4500x {
namespace {

struct HistoryTest : ChannelTest {
  static void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
  }
  static void Undo() { Key(Qt::Key_Z, Qt::ControlModifier); }
  static void Redo() { Key(Qt::Key_Y, Qt::ControlModifier); }
  // What a save would store.
  RadioImage Bytes() {
    RadioImage bytes = image;
    Encode(panel.Shown(), bytes, texts);
    return bytes;
  }
  Lines reported; // in the status bar
  QMetaObject::Connection listening =
      QObject::connect(&panel, &EditorPanel::StatusMessage, &panel,
                       [this](const QString& text) { reported.push_back(text.toStdString()); });
};

TEST_F(HistoryTest, AStepIsOneActionOrWhatIsTypedInABoxUntilItIsLeft) {
  const Configuration before = panel.Shown();
  panel.ShowFunctionView();
  Pick("cboRadio(9)", 3);
  Type("txtConnect", "1");
  QWidget other; // such as the comparison; a box is not left for it
  for (QWidget* const active : {&other, static_cast<QWidget*>(&window)}) {
    active->show();
    active->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(active));
    QTest::keyClick(active, Qt::Key_Shift);
  }
  QTest::keyClicks(&Box("txtConnect"), "2");
  Key(Qt::Key_Tab);
  QTest::keyClicks(&Box("txtDisconnect"), "34");
  Key(Qt::Key_Z, Qt::ControlModifier); // is the box's own
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  Pick("cboTuneSwitch", 0); // marks nothing as changed
  Pick("cboRadio(0)", 1);
  Pick("cboKey(0)", 1);                                           // takes Long A with it
  for (const char* const list : {"cboRadio(2)", "cboRadio(5)"}) { // one notch each, no other input
    List(list).setFocus();
    TurnWheel(List(list), -1);
  }
  panel.ShowChannelView();
  Click(3, 2); // rounds the frequency
  messages.answer = Answer::Yes;
  Type("txtFreqBandL", "451");
  QTest::mouseClick(&Get<QCheckBox>("chkCH(2)"), Qt::LeftButton);
  EXPECT_EQ(messages.Taken().size(), 1U);
  const Configuration after = panel.Shown();
  changed.clear();
  image.EmbeddedInfoBlock.bytes[0] ^= 1; // another text has been read, with its stamp
  image.WriteStampBlock[3] ^= 1;
  const EmbeddedInfo text = image.EmbeddedInfoBlock;
  const auto stamp = image.WriteStampBlock;
  const Lines steps = {"CH3 In Use",          "Lower Limit: 451",    "CH3 Step",
                       "Squelch Level: 3",    "Battery Save: 5s",    "Short A: Emergency Alert",
                       "Select Call: 5 Tone", "Manual Tune: Enable", "Disconnect ID: 34",
                       "Connect ID: 12",      "PTT ID: Both"};
  for (const std::string& step : steps) {
    Undo();
    EXPECT_EQ(std::exchange(reported, {}), Lines{"Undone: " + step});
  }
  EXPECT_EQ(panel.Shown(), before);
  EXPECT_EQ(image.EmbeddedInfoBlock, text);
  EXPECT_EQ(image.WriteStampBlock, stamp);
  EXPECT_GT(changed.count(), 0) << "what was undone is not saved";
  for (std::size_t i = 0; i < steps.size(); ++i)
    Redo();
  EXPECT_EQ(reported.back(), "Redone: CH3 In Use");
  EXPECT_EQ(panel.Shown(), after);
  EXPECT_EQ(messages.shown, Lines());

  Undo();
  Click(1, 12); // something else: what was undone is gone
  Redo();
  panel.Fill(); // other data
  Undo();
  EXPECT_EQ(reported.back(), "Nothing to undo");
}

TEST_F(HistoryTest, AHalfTypedLimitIsNoStepAndTouchesNoBytes) {
  image.ChannelBlock(0, 0) |= 0x08; // no setting shows it
  panel.Fill();
  const RadioImage before = Bytes();
  messages.answer = Answer::Yes;
  QWidget other; // such as the comparison
  other.show();
  QLineEdit& limit = Type("txtFreqBandL", "45");
  QTest::keyClick(&other, Qt::Key_Shift);
  Configuration values = panel.ShownUnfinished();
  values.channels[1].cells[static_cast<std::size_t>(GridColumn::PttId)] = "ON";
  panel.Change(values);
  EXPECT_EQ(limit.text(), "440");
  EXPECT_EQ(Bytes().ChannelBlock(0, 0), before.ChannelBlock(0, 0));
  GoElsewhere();
  Undo();
  EXPECT_EQ(Bytes(), before);
  Type("txtFreqBandL", "45");
  QTest::keyClick(&other, Qt::Key_Shift);
  QTest::keyClicks(&limit, "0");
  GoElsewhere();
  Undo();
  EXPECT_EQ(reported.back(), "Undone: Lower Limit: 450");
  EXPECT_EQ(limit.text(), "440");
  EXPECT_EQ(Bytes(), before);
}

// Two channels can look the same and hold other bytes.
TEST_F(HistoryTest, AMoveOfUnseenBytesIsAStep) {
  image.ChannelBlock(4, 0) |= 0x08;
  panel.Fill();
  changed.clear();
  const RadioImage before = Bytes();
  grid.setCurrentCell(4, 0);
  Key(Qt::Key_Down, Qt::AltModifier);
  const RadioImage moved = Bytes();
  EXPECT_EQ(moved.ChannelBlock(4, 0) & 0x08, 0);
  EXPECT_EQ(moved.ChannelBlock(5, 0) & 0x08, 0x08);
  EXPECT_GT(changed.count(), 0);
  Undo();
  EXPECT_EQ(reported.back(), "Undone: Move Down");
  EXPECT_EQ(Bytes(), before);
  Redo();
  EXPECT_EQ(Bytes(), moved);
}

} // namespace
} // namespace mr4500x
