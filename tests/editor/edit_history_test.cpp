// Undo and redo, by the keys and over edits through the real controls.
#include "differences.h"
#include "editor_fixture.h"

#include <QCheckBox>

#include <random>

namespace mr4500x {
namespace {

struct HistoryTest : ChannelTest {
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
  }
  void Undo() { Key(Qt::Key_Z, Qt::ControlModifier); }
  void Redo() { Key(Qt::Key_Y, Qt::ControlModifier); }
  Lines Told() {
    Lines names;
    for (const QList<QVariant>& message : std::exchange(told, {}))
      names.push_back(message[0].toString().toStdString());
    return names;
  }
  // What a save would store.
  RadioImage Bytes() {
    RadioImage bytes = image;
    Encode(panel.Shown(), bytes, texts);
    return bytes;
  }

  QList<QList<QVariant>> told;
  QMetaObject::Connection listening = QObject::connect(
      &panel, &EditorPanel::Told, &panel, [this](const QString& message) { told.append(QList<QVariant>{message}); });
};

// One edit of the random ones, with all its messages answered by Yes.
class RandomEdit {
public:
  RandomEdit(HistoryTest& test, std::mt19937& random) : m_test(test), m_random(random) {}

  void Make() {
    const bool channels = Below(2) == 0;
    if (channels)
      m_test.panel.ShowChannelView();
    else
      m_test.panel.ShowFunctionView();
    switch (Below(channels ? 5 : 4)) {
    case 0:
      return TypeInABox(channels);
    case 1:
      return channels ? ClickACell() : ChooseInAList();
    case 2:
      return channels ? ClickACell() : ClickATtsCell();
    case 3:
      return PressACheckBox();
    default:
      return ChangeChannels();
    }
  }

private:
  int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
  template<class Control>
  Control* Any() {
    QList<Control*> usable = m_test.panel.findChildren<Control*>();
    usable.removeIf(
        [](const Control* one) { return !one->isVisible() || !one->isEnabled() || one->objectName().isEmpty(); });
    return usable.isEmpty() ? nullptr : usable[Below(static_cast<int>(usable.size()))];
  }
  void TypeInABox(bool channels) {
    auto* const box = Any<QLineEdit>();
    if (box == nullptr) return;
    m_test.Type(box->objectName().toLatin1(), std::to_string(channels ? 136 + Below(385) : Below(1000)).c_str());
    m_test.GoElsewhere();
  }
  void ChooseInAList() {
    auto* const list = Any<QComboBox>();
    list->setFocus();
    QTest::keyClick(list, Below(3) == 0 ? Qt::Key_End : Below(2) == 0 ? Qt::Key_Down : Qt::Key_Home);
  }
  void ClickACell() {
    const int columns[] = {1, 2, 3, 5, 6, 7, 8, 9, 11, 12, 13}; // the others open a dialog
    m_test.Click(1 + Below(16), columns[Below(11)]);
    if (m_test.frequency.isVisible()) QTest::keyClicks(&m_test.frequency, QString::number(140 + Below(380) + 0.0125));
    if (m_test.tone.isVisible()) QTest::keyClick(&m_test.tone, Below(2) == 0 ? Qt::Key_End : Qt::Key_Home);
    m_test.Key(Qt::Key_Return);
  }
  void ClickATtsCell() {
    if (!m_test.ttsTable.isEnabled()) return;
    m_test.EditorTest::Click(m_test.ttsTable, Below(8), 1 + Below(6));
    m_test.Key(Qt::Key_Up);
    m_test.Key(Qt::Key_Return);
  }
  void PressACheckBox() { QTest::keyClick(Any<QCheckBox>(), Qt::Key_Space); }
  void ChangeChannels() {
    m_test.grid.setFocus();
    m_test.grid.setCurrentCell(Below(16), Below(14));
    m_test.Key(Qt::Key_Down, Qt::ShiftModifier);
    const std::pair<int, Qt::KeyboardModifiers> keys[] = {
        {Qt::Key_D, Qt::ControlModifier}, {Qt::Key_Up, Qt::AltModifier}, {Qt::Key_Down, Qt::AltModifier}};
    const auto& [key, modifiers] = keys[Below(3)];
    m_test.Key(key, modifiers);
  }

  HistoryTest& m_test;
  std::mt19937& m_random;
};

TEST_F(HistoryTest, TwoHundredRandomEditsAreUndoneAndRedoneToTheSameBytes) {
  std::mt19937 random(13);
  messages.answer = Answer::Yes;
  std::vector<std::pair<Configuration, RadioImage>> states = {{panel.Shown(), Bytes()}};
  for (int edits = 0; edits < 200;) {
    RandomEdit(*this, random).Make();
    GoElsewhere();
    QTest::keyClick(elsewhere, Qt::Key_Shift);
    if (random() % 8 == 0) panel.Collect(); // as a save does
    if (DifferencesBetween(states.back().first, panel.Shown()).empty()) continue;
    states.emplace_back(panel.Shown(), Bytes());
    ++edits;
  }
  GoElsewhere();
  messages.Taken();
  told.clear();
  const auto isAt = [&](std::size_t i) {
    return DifferencesBetween(panel.Shown(), states[i].first).empty() && Bytes() == states[i].second;
  };
  for (std::size_t i = states.size() - 1; i-- > 0;) {
    Undo();
    ASSERT_TRUE(isAt(i)) << i << ' ' << Told().back();
  }
  Undo(); // there is no more
  for (std::size_t i = 1; i < states.size(); ++i) {
    Redo();
    ASSERT_TRUE(isAt(i)) << i << ' ' << Told().back();
  }
  EXPECT_EQ(Told().size(), 2 * (states.size() - 1));
  EXPECT_EQ(messages.shown, Lines());
}

TEST_F(HistoryTest, AStepIsOneActionOrWhatIsTypedInABoxUntilItIsLeft) {
  const Configuration before = panel.Shown();
  panel.ShowFunctionView();
  Pick("cboRadio(9)", 3);
  Type("txtConnect", "12");
  Key(Qt::Key_Tab);
  QTest::keyClicks(&Box("txtDisconnect"), "34");
  Key(Qt::Key_Z, Qt::ControlModifier); // is the box's own
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  Pick("cboTuneSwitch", 0); // marks nothing as changed
  Pick("cboRadio(0)", 1);
  Pick("cboKey(0)", 1); // takes Long A with it
  panel.ShowChannelView();
  Click(3, 2); // rounds the frequency
  messages.answer = Answer::Yes;
  Type("txtFreqBandL", "451");
  QTest::mouseClick(&Get<QCheckBox>("chkCH(2)"), Qt::LeftButton);
  EXPECT_EQ(messages.Taken().size(), 1U);
  const Configuration after = panel.Shown();
  changed.clear();
  const Lines steps = {"CH3 In Use",          "Lower Limit: 451",    "CH3 Step",          "Short A: Emergency Alert",
                       "Select Call: 5 Tone", "Manual Tune: Enable", "Disconnect ID: 34", "Connect ID: 12",
                       "PTT ID: Both"};
  for (const std::string& step : steps) {
    Undo();
    EXPECT_EQ(Told(), Lines{"Undone: " + step});
  }
  EXPECT_EQ(panel.Shown(), before);
  EXPECT_GT(changed.count(), 0) << "what was undone is not saved";
  for (std::size_t i = 0; i < steps.size(); ++i)
    Redo();
  EXPECT_EQ(Told().back(), "Redone: CH3 In Use");
  EXPECT_EQ(panel.Shown(), after);
  EXPECT_EQ(messages.shown, Lines());

  Undo();
  Click(1, 12); // something else: what was undone is gone
  Redo();
  panel.Fill(); // other data
  Undo();
  EXPECT_EQ(Told(), Lines{"Undone: CH3 In Use"});
}

} // namespace
} // namespace mr4500x
