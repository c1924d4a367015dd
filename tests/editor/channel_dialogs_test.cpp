// The selective-call and group-call dialogs, as the grid opens them.
#include "channel_fixture.h"

#include <QDialog>
#include <QTimer>

namespace mr4500x {
namespace {

struct DialogTest : ChannelFrameTest {
  // Clicks a cell and works in the dialog that opens.
  void Ask(int row, int column, const std::function<void(QDialog&)>& work) {
    QTimer::singleShot(0, &window, [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->activateWindow();
      EXPECT_TRUE(QTest::qWaitFor([dialog] { return dialog->isActiveWindow(); }));
      work(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
    Click(row, column);
  }
  static void Press(const QDialog& dialog, const char* button) {
    auto* const control = dialog.findChild<QAbstractButton*>(button);
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
  }
};

TEST_F(DialogTest, SelectiveCall) {
  const char* const notFive = "The number of 5 Tone must be five!";
  // The cell, the option pressed, what is typed into the code or picked from the list, the button or the key in the
  // code, the cell afterwards and the message.
  using Row = std::tuple<const char*, const char*, const char*, const char*, const char*, const char*>;
  const Row cases[] = {{"OFF", "optSig(1)", "", "cmdOK", "TTS 1", ""},
                       {"TTS 15", "", "", "cmdOK", "TTS 15", ""}, // no entry of the list
                       {"TTS 3", "", "8", "cmdOK", "TTS 8", ""},
                       {"TTS 3", "", "8", "cmdCancel", "TTS 3", ""},
                       {"TTS 3", "optSig(0)", "", "cmdOK", "OFF", ""},
                       {"OFF", "optSig(2)", "9x8765", "cmdOK", "5T 98765", ""},
                       {"5T 01234", "", "98765", "Enter", "5T 98765", ""},
                       {"OFF", "optSig(2)", "12", "cmdOK", "5T 12000", notFive},
                       {"5T 01234", "", "12", "cmdCancel", "5T 01234", ""},
                       {"5T 01234", "", "12", "Escape", "5T 01234", ""},
                       {"5T 01234", "", "12", "Tab", "5T 01234", notFive},
                       {"5T 12A45", "", "", "cmdOK", "5T 12000", "Invalide 5 Tone!"}};
  for (const auto& [cell, option, entry, end, result, error] : cases) {
    SCOPED_TRACE(std::string(cell) + " to " + result + " by " + end);
    ttsMode = std::string(cell).starts_with("TTS") || std::string(option) == "optSig(1)";
    const int column = ttsMode ? 4 : 10;
    SetCell(2, column, cell);
    Ask(2, column, [&, pressed = option, typed = entry, outcome = result, last = std::string(end)](QDialog& dialog) {
      auto* const list = dialog.findChild<QComboBox*>("cboTwoSig");
      auto* const code = dialog.findChild<QLineEdit*>("txtFiveSig");
      if (*pressed != 0) Press(dialog, pressed);
      const bool isOn = std::string(outcome) != "OFF";
      EXPECT_TRUE(list->isVisible() == ttsMode && list->isEnabled() == (ttsMode && isOn));
      EXPECT_TRUE(code->isVisible() == !ttsMode && code->isEnabled() == (!ttsMode && isOn));
      if (*typed != 0 && ttsMode) list->setCurrentText(typed);
      if (*typed != 0 && !ttsMode) {
        code->setFocus();
        code->selectAll();
        QTest::keyClicks(code, typed);
      }
      for (const auto& [name, key] :
           {std::pair{"Enter", Qt::Key_Return}, {"Escape", Qt::Key_Escape}, {"Tab", Qt::Key_Tab}})
        if (last == name) QTest::keyClick(code, key);
      EXPECT_TRUE(last != "Tab" || (code->selectedText() == "12000" && code->hasFocus()));
      if (last.starts_with("cmd")) Press(dialog, last.c_str());
      EXPECT_EQ(dialog.isVisible(), last == "Tab");
    });
    EXPECT_EQ(Cell(2, column), result);
    EXPECT_EQ(messages.Taken(), ErrorMessage(error));
  }
}

TEST_F(DialogTest, GroupCall) {
  const std::tuple<bool, const char*, const char*, const char*, const char*, const char*> cases[] = {
      {true, "OFF", "OFF", "Tone A", "cmdOK", "Tone A"}, {true, "Tone B", "Tone B", "OFF", "cmdOK", "OFF"},
      {true, "Tone #7", "", "", "cmdOK", "Tone #7"},     {false, "OFF", "OFF", "First 3", "cmdOK", "5T 3"},
      {false, "5T 4", "First 4", "OFF", "cmdOK", "OFF"}, {false, "5T 1", "First 1", "First 2", "cmdCancel", "5T 1"}};
  for (const auto& [mode, cell, shown, picked, button, result] : cases) {
    SCOPED_TRACE(std::string(cell) + " to " + result);
    ttsMode = mode;
    SetCell(3, 14, cell);
    Ask(3, 14, [&, before = shown, pick = picked, end = button](QDialog& dialog) {
      auto* const list = dialog.findChild<QComboBox*>(ttsMode ? "cboTwoSig(0)" : "cboTwoSig(1)");
      EXPECT_TRUE(list->isEnabled() && list->currentText() == before);
      if (*pick != 0) list->setCurrentText(pick);
      Press(dialog, end);
    });
    EXPECT_EQ(Cell(3, 14), result);
  }
}

} // namespace
} // namespace mr4500x
