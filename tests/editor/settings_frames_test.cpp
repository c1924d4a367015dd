// The settings under keys and clicks: the entries that their boxes accept and refuse, their messages, and their effects
// on each other.
#include "editor_fixture.h"
#include "field_rules.h"
#include "wheel.h"

#include <QMenu>
#include <QSpinBox>

namespace mr4500x {
namespace {

struct SettingsTest : EditorTest {
  SettingsTest() {
    panel.ShowFunctionView();
    off.setChecked(false);
    changed.clear();
  }
  QSpinBox& arrows = Get<QSpinBox>("vsbResetTime");
  QCheckBox& off = Get<QCheckBox>("chkResetTimeOFF");
};

constexpr const char* None = NoNumberText.data();

TEST_F(SettingsTest, EveryBoxLimitsOrRefusesItsEntry) {
  for (const Row& row :
       RowsOf(CASES "box_entries.txt", "[^:]+: (\\S+) (types|pastes) \"(.*)\", (.*) -> (.*?)(?: \\| (.*))?")) {
    const auto& [line, control, how, entry, end, becomes, error] =
        std::tie(row[0], row[1], row[2], row[3], row[4], row[5], row[6]);
    SCOPED_TRACE(line);
    panel.FillReset({});
    List("cboRadio(9)").setCurrentText("Both");
    off.setChecked(false);
    control.starts_with("txtFreq") ? panel.ShowChannelView() : panel.ShowFunctionView();
    QLineEdit& box = Type(control.c_str(), how == "types" ? entry.c_str() : "");
    QApplication::clipboard()->setText(QString::fromStdString(Unescaped(entry)));
    if (how == "pastes") QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    const QPoint arrow(arrows.width() / 2, arrows.height() * (end == "arrow up" ? 1 : 3) / 4);
    const QKeySequence keys(QString::fromStdString(end));
    if (end.starts_with("arrow"))
      QTest::mouseClick(&arrows, Qt::LeftButton, {}, arrow);
    else if (end == "leaves")
      GoElsewhere();
    for (uint i = 0; i < uint(keys.count()) && end != "leaves"; ++i) // with a control character, as a keyboard
      QTest::sendKeyEvent(QTest::Click, &box, keys[i].key(), QString(QChar(1)), keys[i].keyboardModifiers());
    EXPECT_EQ(Text(control.c_str()), becomes);
    EXPECT_EQ(messages.Taken(), ErrorMessage(error));
  }
}

TEST_F(SettingsTest, AnIdBoxSelectsItsDashesAndTrimsWhatItsMenuPastes) {
  QLineEdit& box = Box("txtANI");
  for (const bool byMouse : {true, false}) {
    GoElsewhere();
    byMouse ? QTest::mouseClick(&box, Qt::LeftButton) : box.setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(box.selectedText(), NoNumberText.data()) << byMouse;
  }
  QApplication::clipboard()->setText(" 12\n");
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
  QApplication::sendEvent(&box, &asked);
  for (QAction* const action : box.findChild<QMenu*>()->actions())
    if (action->text().startsWith("&Paste")) action->trigger();
  EXPECT_EQ(Text("txtANI"), "12");
}

TEST_F(SettingsTest, AClickOnAnArrowCountsAtTheRelease) {
  Type("txtResetTime", "");
  const QPoint up(arrows.width() / 2, arrows.height() / 4);
  for (const char* const after : {"1", "2"}) {
    QTest::mousePress(&arrows, Qt::LeftButton, {}, up);
    EXPECT_TRUE(messages.shown.empty()) << "it would swallow the release";
    QTest::mouseRelease(&arrows, Qt::LeftButton, {}, up);
    EXPECT_EQ(Text("txtResetTime"), after);
    EXPECT_EQ(messages.Taken().size(), after == std::string("1") ? 1U : 0U);
  }
}

TEST_F(SettingsTest, EachChangeIsReportedOnceButNoTypedId) {
  Type("txtANI", "12");
  EXPECT_EQ(changed.count(), 0);
  Type("txtResetTime", "12");
  QTest::mouseClick(&off, Qt::LeftButton, {}, {8, off.height() / 2});
  EXPECT_EQ(changed.count(), 4);
  List("cboRadio(9)").setCurrentText("Both");
  Type("txtConnect", "12");
  List("cboRadio(9)").setCurrentText("Disconnect ID"); // disables "Connect ID"
  EXPECT_EQ(Text("txtConnect") + Text("txtDisconnect"), std::string(None) + " disabled" + None);
  image.ResetTimeBlock = {0, 1, 9};
  panel.Fill();
  EXPECT_EQ(Text("txtResetTime"), "12 disabled") << "a fill under OFF leaves the text";
  EXPECT_FALSE(arrows.isEnabled());
  QStringList unmarked;
  for (auto* const list : panel.findChildren<QComboBox*>()) {
    if (list->isHidden()) continue;
    changed.clear();
    list->setEnabled(true);
    Pick(list->objectName().toLatin1(), list->currentIndex() == 1 ? 0 : 1);
    EXPECT_LE(changed.count(), 1) << list->objectName().toStdString();
    if (changed.empty()) unmarked.append(list->objectName());
  }
  for (auto* const box : panel.findChildren<QCheckBox*>()) {
    if (!box->isEnabled()) continue;
    changed.clear();
    box->click();
    EXPECT_EQ(changed.count(), 1) << box->objectName().toStdString();
  }
  EXPECT_EQ(unmarked.join(' ').toStdString(), "cboKey(11) cboTuneSwitch") << "the first shows what Short A says";
}

TEST_F(SettingsTest, AWheelTurnsOnlyWhatHasTheFocus) {
  auto& list = List("cboRadio(2)");
  list.setCurrentIndex(3);
  Type("txtResetTime", "5");
  GoElsewhere();
  const Configuration before = panel.Shown();
  for (QWidget* const over : {static_cast<QWidget*>(&list), static_cast<QWidget*>(&arrows), ttsTable.viewport()})
    TurnWheel(*over, 1);
  EXPECT_EQ(panel.Shown(), before);
  list.setFocus();
  TurnWheel(list, 1);
  EXPECT_EQ(list.currentIndex(), 2);
  arrows.setFocus();
  TurnWheel(arrows, 1);
  EXPECT_EQ(Text("txtResetTime"), "6");

  // The wheel has no release that the message of a refused entry could wait for.
  Type("txtANI", "").insert("x");
  list.setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(messages.Taken(), Lines());
  TurnWheel(list, 1);
  EXPECT_EQ(messages.Taken(), ErrorMessage("Emergency ANI Invalid!"));
  EXPECT_EQ(list.currentIndex(), 1);
}

// A fill selects one key after the other in the lists as they are, so a conflict brings the selection before it back.
TEST_F(SettingsTest, AFillSelectsTheKeysAsAUserWould) {
  for (const Row& row : RowsOf(CASES "filled_keys.txt", "[^:]+: (.*); (?:(\\S+) (\\d))?; (.*); (\\d) -> (.*)")) {
    SCOPED_TRACE(row[0]);
    const auto fill = [&](const std::string& keys) {
      image.KeyProgramBlock = {};
      std::ranges::copy(BytesOf(keys), image.KeyProgramBlock.begin());
      panel.Fill();
    };
    panel.FillReset({});
    fill(row[1]);
    if (!row[2].empty()) Pick(row[2].c_str(), std::stoi(row[3]));
    messages.shown.clear();
    fill(row[4]);
    EXPECT_EQ(std::to_string(messages.Taken().size()), row[5]);
    QStringList shown;
    for (int key = 0; key < 6; ++key) {
      const QComboBox& list = List(qPrintable(QStringLiteral("cboKey(%1)").arg(key)));
      const std::uint8_t code = panel.Collected().KeyProgramBlock[static_cast<std::size_t>(key)];
      if (list.isHidden()) // the other one of the pair has its own list
        shown.append(QStringLiteral("cboKey(%1)").arg(10 + key));
      else
        shown.append(list.currentIndex() < 0     ? "#" + QString::number(code, 16)
                     : code == 0 || code >= 0xC0 ? QString()
                                                 : list.currentText());
    }
    EXPECT_EQ(shown.join(",").toStdString(), row[6]);
  }
}

} // namespace
} // namespace mr4500x
