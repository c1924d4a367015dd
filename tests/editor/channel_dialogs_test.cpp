// The selective-call and group-call dialogs, as the grid opens them.
#include "channel_fixture.h"
#include "look.h"

#include <QDialog>
#include <QRadioButton>
#include <QTimer>

namespace mr4500x {
namespace {

struct DialogTest : ChannelFrameTest {
  // Clicks a cell and works in the dialog that opens.
  void Ask(int row, int column, const std::function<void(QDialog&)>& work) {
    bool opened = false;
    QTimer::singleShot(0, &window, [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->activateWindow();
      EXPECT_TRUE(QTest::qWaitFor([dialog] { return dialog->isActiveWindow(); }));
      opened = true;
      work(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
    Click(row, column);
    EXPECT_TRUE(opened);
  }
  static void Press(const QDialog& dialog, const char* button) {
    auto* const control = dialog.findChild<QAbstractButton*>(button);
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
  }
};

TEST_F(DialogTest, SelectiveCall) {
  const char* const notFive = "The number of 5 Tone must be five!";
  const char* const notDigits = "Invalide 5 Tone!";
  struct Case {
    bool ttsMode;
    const char* cell;
    const char* option; // pressed, unless ""
    const char* entry;  // typed into the code or picked from the list, unless ""
    const char* button; // or a key in the code
    const char* result;
    const char* error;
  };
  for (const auto& [mode, cell, option, entry, button, result, error] :
       {Case{true, "OFF", "optSig(1)", "", "cmdOK", "TTS 1", ""}, Case{true, "TTS 3", "", "8", "cmdOK", "TTS 8", ""},
        Case{true, "TTS 15", "", "", "cmdOK", "TTS 15", ""}, // no entry of the list
        Case{true, "TTS 3", "", "8", "cmdCancel", "TTS 3", ""},
        Case{true, "TTS 3", "optSig(0)", "", "cmdOK", "OFF", ""},
        Case{false, "5T 01234", "", "", "cmdOK", "5T 01234", ""},
        Case{false, "OFF", "optSig(2)", "9x8765", "cmdOK", "5T 98765", ""},
        Case{false, "OFF", "optSig(2)", "9x8765", "Enter", "5T 98765", ""},
        Case{false, "OFF", "optSig(2)", "12", "cmdOK", "5T 12000", notFive},
        Case{false, "5T 01234", "", "12", "cmdCancel", "5T 01234", ""},
        Case{false, "5T 01234", "", "12", "Escape", "5T 01234", ""},
        Case{false, "5T 12A45", "", "", "cmdOK", "5T 12000", notDigits}}) {
    for (const int column : {4, 10}) {
      SCOPED_TRACE(std::string(cell) + " to " + result + " by " + button);
      ttsMode = mode;
      changes = 0;
      SetCell(2, column, cell);
      Ask(2, column,
          [&, pressed = std::string(option), typed = QString(entry), end = std::string(button)](auto& dialog) {
            EXPECT_EQ(dialog.objectName(), "frmTwoFive");
            if (column == 4) { // the other would be past the edge of this screen
              EXPECT_EQ(dialog.pos() - window.pos(), QPoint(Pixels(4000, frame), Pixels(3100, frame)));
            }
            auto* const list = dialog.template findChild<QComboBox*>("cboTwoSig");
            auto* const code = dialog.template findChild<QLineEdit*>("txtFiveSig");
            auto* const tts = dialog.template findChild<QRadioButton*>("optSig(1)");
            auto* const fiveTone = dialog.template findChild<QRadioButton*>("optSig(2)");
            EXPECT_TRUE(list->isVisible() == ttsMode && tts->isVisible() == ttsMode);
            EXPECT_TRUE(code->isVisible() == !ttsMode && fiveTone->isVisible() == !ttsMode);
            EXPECT_EQ(list->palette().color(QPalette::Active, QPalette::ButtonText).rgb(),
                      column == 4 ? GreenText : TealText);
            if (!pressed.empty()) Press(dialog, pressed.c_str());
            EXPECT_TRUE(list->isEnabled() == tts->isChecked() && code->isEnabled() == fiveTone->isChecked());
            if (ttsMode && !typed.isEmpty()) list->setCurrentText(typed);
            if (!ttsMode && !typed.isEmpty()) {
              code->setFocus();
              code->selectAll();
              QTest::keyClicks(code, typed);
            }
            if (end == "Enter") QTest::keyClick(code, Qt::Key_Return);
            if (end == "Escape") QTest::keyClick(code, Qt::Key_Escape);
            if (end.starts_with("cmd")) Press(dialog, end.c_str());
            EXPECT_FALSE(dialog.isVisible());
          });
      EXPECT_EQ(Cell(2, column), result);
      EXPECT_EQ(messages.Taken(), ErrorMessage(error));
      EXPECT_EQ(changes, 1);
    }
  }
}

TEST_F(DialogTest, AWrongCodeIsPaddedAndSelectedWhenTheFocusLeavesIt) {
  ttsMode = false;
  SetCell(2, 4, "5T 01234");
  Ask(2, 4, [this](QDialog& dialog) {
    auto* const code = dialog.findChild<QLineEdit*>("txtFiveSig");
    messages.whileShown = [&dialog] { dialog.findChild<QWidget*>("optSig(0)")->setFocus(); };
    for (const auto& [text, padded] : {std::pair{"12", "12000"}, std::pair{"12a45", "12000"}, std::pair{"", "00000"}}) {
      code->setFocus();
      code->setText(text); // as if pasted
      QTest::keyClick(code, Qt::Key_Tab);
      EXPECT_EQ(messages.Taken().size(), 1U) << text;
      EXPECT_EQ(code->selectedText(), padded);
      EXPECT_TRUE(code->hasFocus()) << text;
    }
  });
  EXPECT_EQ(Cell(2, 4), "5T 01234");
}

TEST_F(DialogTest, GroupCall) {
  struct Case {
    bool ttsMode;
    const char *cell, *shown, *picked, *button, *result;
  };
  for (const auto& [mode, cell, shown, picked, button, result] :
       {Case{true, "OFF", "OFF", "Tone A", "cmdOK", "Tone A"}, Case{true, "Tone B", "Tone B", "", "cmdOK", "Tone B"},
        Case{true, "Tone B", "Tone B", "OFF", "cmdOK", "OFF"}, Case{true, "Tone #7", "", "", "cmdOK", "Tone #7"},
        Case{false, "OFF", "OFF", "First 3", "cmdOK", "5T 3"}, Case{false, "5T 4", "First 4", "OFF", "cmdOK", "OFF"},
        Case{false, "5T 1", "First 1", "First 2", "cmdCancel", "5T 1"}}) {
    SCOPED_TRACE(std::string(cell) + " to " + result);
    ttsMode = mode;
    SetCell(3, 14, cell);
    Ask(3, 14, [&, texts = std::pair{shown, picked}, pressed = button](QDialog& dialog) {
      EXPECT_EQ(dialog.objectName(), "frmGroup");
      for (const int i : {0, 1}) {
        auto* const list = dialog.findChild<QComboBox*>(QString("cboTwoSig(%1)").arg(i));
        const bool inForce = ttsMode == (i == 0);
        EXPECT_EQ(list->isEnabled(), inForce);
        EXPECT_EQ(dialog.findChild<QRadioButton*>(QString("optSig(%1)").arg(i + 1))->isChecked(), inForce);
        EXPECT_EQ(list->currentText(), inForce ? texts.first : "OFF");
        if (inForce && *texts.second != 0) list->setCurrentText(texts.second);
      }
      Press(dialog, pressed);
    });
    EXPECT_EQ(Cell(3, 14), result);
  }
}

} // namespace
} // namespace mr4500x
