// Undo and redo, by the keys and over edits through the real controls.
#include "differences.h"
#include "editor_fixture.h"
#include "entry_controls.h"
#include "wheel.h"

#include <QCheckBox>

#include <random>

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

  int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
  template<class Control>
  Control* Any() {
    QList<Control*> usable = panel.findChildren<Control*>();
    usable.removeIf([](const Control* one) { return !one->isVisible() || !one->isEnabled(); });
    return usable[Below(static_cast<int>(usable.size()))];
  }
  void EditChannels() {
    const int columns[] = {1, 2, 3, 5, 6, 7, 8, 9, 11, 12, 13}; // the others open a dialog
    const std::pair<int, Qt::KeyboardModifiers> commands[] = {
        {Qt::Key_D, Qt::ControlModifier}, {Qt::Key_Up, Qt::AltModifier}, {Qt::Key_Down, Qt::AltModifier}};
    panel.ShowChannelView();
    switch (Below(5)) {
    case 0:
      Type(Any<QLineEdit>()->objectName().toLatin1(), std::to_string(136 + Below(385)).c_str());
      return;
    case 1:
      return QTest::keyClick(Any<QCheckBox>(), Qt::Key_Space);
    case 2:
      grid.setFocus();
      grid.setCurrentCell(Below(16), Below(14));
      Key(Qt::Key_Down, Qt::ShiftModifier);
      return std::apply(Key, commands[Below(3)]);
    default:
      Click(1 + Below(16), columns[Below(11)]);
      if (frequency.isVisible()) QTest::keyClicks(&frequency, QString::number(140 + Below(380) + 0.0125));
      if (tone.isVisible()) Key(Below(2) == 0 ? Qt::Key_End : Qt::Key_Home);
      return Key(Qt::Key_Return);
    }
  }
  void EditFunctions() {
    const int keys[] = {Qt::Key_Home, Qt::Key_Down, Qt::Key_End};
    panel.ShowFunctionView();
    switch (Below(4)) {
    case 0:
      Type(Any<EntryBox>()->objectName().toLatin1(), std::to_string(Below(1000)).c_str());
      return;
    case 1:
      return QTest::keyClick(Any<QCheckBox>(), Qt::Key_Space);
    case 2:
      if (!ttsTable.isEnabled()) return;
      EditorTest::Click(ttsTable, Below(8), 1 + Below(6));
      Key(Qt::Key_Up);
      return Key(Qt::Key_Return);
    default:
      Any<QComboBox>()->setFocus();
      return Key(keys[Below(3)]);
    }
  }

  std::mt19937 random{13};
  Lines told; // in passing
  QMetaObject::Connection listening = QObject::connect(
      &panel, &EditorPanel::Told, &panel, [this](const QString& text) { told.push_back(text.toStdString()); });
};

TEST_F(HistoryTest, TwoHundredRandomEditsAreUndoneAndRedoneToTheSameBytes) {
  messages.answer = Answer::Yes;
  std::vector<std::pair<Configuration, RadioImage>> states = {{panel.Shown(), Bytes()}};
  for (int edits = 0; edits < 200;) {
    Below(2) == 0 ? EditChannels() : EditFunctions();
    GoElsewhere();
    QTest::keyClick(elsewhere, Qt::Key_Shift);
    if (random() % 8 == 0) panel.Collect(); // as a save does
    const bool isStep = !DifferencesBetween(states.back().first, panel.Shown()).empty();
    if (!isStep) states.pop_back(); // for what no setting shows
    states.emplace_back(panel.Shown(), Bytes());
    edits += isStep ? 1 : 0;
  }
  messages.Taken();
  told.clear();
  const auto isAt = [&](std::size_t i) { return panel.Shown() == states[i].first && Bytes() == states[i].second; };
  for (std::size_t i = states.size() - 1; i-- > 0;) {
    Undo();
    ASSERT_TRUE(isAt(i)) << i << ' ' << told.back();
  }
  Undo();
  EXPECT_EQ(told.back(), "Nothing to undo");
  told.pop_back();
  for (std::size_t i = 1; i < states.size(); ++i) {
    Redo();
    ASSERT_TRUE(isAt(i)) << i << ' ' << told.back();
  }
  EXPECT_EQ(told.size(), 2 * (states.size() - 1));
  EXPECT_EQ(messages.shown, Lines());
}

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
    EXPECT_EQ(std::exchange(told, {}), Lines{"Undone: " + step});
  }
  EXPECT_EQ(panel.Shown(), before);
  EXPECT_EQ(image.EmbeddedInfoBlock, text);
  EXPECT_EQ(image.WriteStampBlock, stamp);
  EXPECT_GT(changed.count(), 0) << "what was undone is not saved";
  for (std::size_t i = 0; i < steps.size(); ++i)
    Redo();
  EXPECT_EQ(told.back(), "Redone: CH3 In Use");
  EXPECT_EQ(panel.Shown(), after);
  EXPECT_EQ(messages.shown, Lines());

  Undo();
  Click(1, 12); // something else: what was undone is gone
  Redo();
  panel.Fill(); // other data
  Undo();
  EXPECT_EQ(told.back(), "Nothing to undo");
}

TEST_F(HistoryTest, AHalfTypedLimitIsNoStepAndTouchesNoBytes) {
  image.ChannelBlock(0, 0) |= 0x08; // no setting shows it
  panel.Fill();
  const RadioImage before = Bytes();
  messages.answer = Answer::Yes;
  QWidget other; // as the comparison
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
  EXPECT_EQ(told.back(), "Undone: Lower Limit: 450");
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
  EXPECT_EQ(told.back(), "Undone: Move Down");
  EXPECT_EQ(Bytes(), before);
  Redo();
  EXPECT_EQ(Bytes(), moved);
}

} // namespace
} // namespace mr4500x
