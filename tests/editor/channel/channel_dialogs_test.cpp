// The selective-call and group-call dialogs, as the grid opens them.
#include "channel_fixture.h"

#include "cell_colours.h"
#include "twips.h"

#include <QDialog>
#include <QRadioButton>
#include <QTimer>

namespace mr4500x {
namespace {

class DialogTest : public ChannelFrameTest {
protected:
  // Clicks a cell and works in the dialog that opens.
  void Ask(int row, int column, const std::function<void(QDialog&)>& work) {
    bool opened = false;
    QTimer inDialog;
    inDialog.setSingleShot(true);
    QObject::connect(&inDialog, &QTimer::timeout, &window, [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->activateWindow();
      EXPECT_TRUE(QTest::qWaitFor([dialog] { return dialog->isActiveWindow(); }));
      opened = true;
      work(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
    inDialog.start();
    Click(row, column);
    EXPECT_TRUE(opened);
  }
  static void Press(const QDialog& dialog, const char* button) {
    auto* const control = dialog.findChild<QAbstractButton*>(button);
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
  }
};

struct SelectiveCallCase {
  bool ttsMode;
  const char* cell;
  const char* option; // pressed, unless ""
  const char* entry;  // typed into the code or picked from the list, unless ""
  const char* button;
  const char* result;
  ShownMessages shown;
};

TEST_F(DialogTest, SelectiveCall) {
  const ShownMessages notFive = ErrorMessage("The number of 5 Tone must be five!");
  const ShownMessages notDigits = ErrorMessage("Invalide 5 Tone!");
  for (const int column : {4, 10}) {
    for (const SelectiveCallCase& c :
         {SelectiveCallCase{true, "OFF", "optSig(1)", "", "cmdOK", "TTS 1", {}},
          SelectiveCallCase{true, "TTS 3", "", "", "cmdOK", "TTS 3", {}},
          SelectiveCallCase{true, "TTS 3", "", "8", "cmdOK", "TTS 8", {}},
          SelectiveCallCase{true, "TTS 15", "", "", "cmdOK", "TTS 15", {}}, // no entry of the list
          SelectiveCallCase{true, "TTS 3", "", "8", "cmdCancel", "TTS 3", {}},
          SelectiveCallCase{true, "TTS 3", "optSig(0)", "", "cmdOK", "OFF", {}},
          SelectiveCallCase{false, "5T 01234", "", "", "cmdOK", "5T 01234", {}},
          SelectiveCallCase{false, "OFF", "optSig(2)", "9x8765", "cmdOK", "5T 98765", {}},
          SelectiveCallCase{false, "OFF", "optSig(2)", "12", "cmdOK", "5T 12000", notFive},
          SelectiveCallCase{false, "5T 01234", "", "12", "cmdCancel", "5T 01234", {}},
          SelectiveCallCase{false, "5T 12A45", "", "", "cmdOK", "5T 12000", notDigits}}) {
      ttsMode = c.ttsMode;
      messages.shown.clear();
      changes = 0;
      SetCell(2, column, c.cell);
      Ask(2, column, [&](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "frmTwoFive");
        auto* const list = dialog.findChild<QComboBox*>("cboTwoSig");
        auto* const code = dialog.findChild<QLineEdit*>("txtFiveSig");
        EXPECT_EQ(list->isVisible() && dialog.findChild<QWidget*>("optSig(1)")->isVisible(), ttsMode);
        EXPECT_EQ(code->isVisible() && dialog.findChild<QWidget*>("optSig(2)")->isVisible(), !ttsMode);
        EXPECT_EQ(list->palette().color(QPalette::Active, QPalette::ButtonText).rgb(),
                  column == 4 ? GreenText : TealText);
        if (column == 4) {
          EXPECT_EQ(dialog.frameGeometry().topLeft() - window.frameGeometry().topLeft(),
                    QPoint(Pixels(4000, frame), Pixels(3100, frame)));
        }
        if (*c.option != 0) Press(dialog, c.option);
        EXPECT_EQ(list->isEnabled(), dialog.findChild<QRadioButton*>("optSig(1)")->isChecked());
        EXPECT_EQ(code->isEnabled(), dialog.findChild<QRadioButton*>("optSig(2)")->isChecked());
        if (*c.entry != 0 && ttsMode) list->setCurrentText(c.entry);
        if (*c.entry != 0 && !ttsMode) {
          code->setFocus();
          code->selectAll();
          QTest::keyClicks(code, c.entry);
        }
        Press(dialog, c.button);
      });
      EXPECT_EQ(Cell(2, column), c.result);
      EXPECT_EQ(messages.shown, c.shown);
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
      messages.shown.clear();
      code->setFocus();
      code->setText(text); // as if pasted
      QTest::keyClick(code, Qt::Key_Tab);
      EXPECT_EQ(messages.shown.size(), 1U);
      EXPECT_EQ(code->selectedText(), padded);
      EXPECT_TRUE(code->hasFocus());
    }
    QTest::keyClick(code, Qt::Key_Escape);
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
