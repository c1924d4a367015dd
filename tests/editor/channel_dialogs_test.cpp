// The selective-call and group-call dialogs, as the grid opens them.
#include "editor_fixture.h"

#include <QDialog>
#include <QTimer>

namespace mr4500x {
namespace {

struct DialogTest : ChannelTest {
  // Puts the text into the cell, clicks the cell and works in the dialog that opens.
  void Ask(bool tts, int column, const char* cell, const std::function<void(QDialog&)>& work) {
    List("cboRadio(0)").setCurrentIndex(tts ? 0 : 1);
    SetCell(2, column, cell);
    QTimer::singleShot(0, &window, [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->activateWindow();
      EXPECT_TRUE(QTest::qWaitFor([dialog] { return dialog->isActiveWindow(); }));
      work(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
    Click(2, column);
  }
  static void Press(const QDialog& dialog, const char* button) {
    auto* const control = dialog.findChild<QAbstractButton*>(button);
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
  }
};

TEST_F(DialogTest, SelectiveCall) {
  const char* const notFive = "The number of 5 Tone must be five!";
  const struct {
    const char *name, *cell, *option, *entry; // pressed, then typed or picked from the list
    const char *end, *result, *error;         // the button, or the key in the code; the cell afterwards; the message
  } cases[] = {{"chosen", "OFF", "optSig(1)", "", "cmdOK", "TTS 1", ""},
               {"not in the list", "TTS 15", "", "", "cmdOK", "TTS 15", ""},
               {"another entry", "TTS 3", "", "8", "cmdOK", "TTS 8", ""},
               {"off", "TTS 3", "optSig(0)", "", "cmdOK", "OFF", ""},
               {"code with a letter", "OFF", "optSig(2)", "9x8765", "Enter", "5T 98765", ""},
               {"short code", "OFF", "optSig(2)", "12", "cmdOK", "5T 12000", notFive},
               {"off instead of a short code", "5T 01234", "", "12", "optSig(0)", "OFF", ""},
               {"cancelled short code", "5T 01234", "", "12", "cmdCancel", "5T 01234", ""},
               {"short code, next field", "5T 01234", "", "12", "Tab", "5T 01234", notFive},
               {"letter in the radio", "5T 12A45", "", "", "cmdOK", "5T 12000", "Invalide 5 Tone!"}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    const bool tts = std::string(row.cell).starts_with("TTS") || std::string(row.option) == "optSig(1)";
    const int column = tts ? 4 : 10;
    Ask(tts, column, row.cell, [&](QDialog& dialog) {
      auto* const list = dialog.findChild<QComboBox*>("cboTwoSig");
      auto* const code = dialog.findChild<QLineEdit*>("txtFiveSig");
      if (*row.option != 0) Press(dialog, row.option);
      const bool isOn = std::string(row.result) != "OFF" || *row.entry != 0;
      EXPECT_TRUE(list->isVisible() == tts && list->isEnabled() == (tts && isOn));
      EXPECT_TRUE(code->isVisible() == !tts && code->isEnabled() == (!tts && isOn));
      if (*row.entry != 0 && tts) list->setCurrentText(row.entry);
      if (*row.entry != 0 && !tts) {
        code->setFocus();
        code->selectAll();
        QTest::keyClicks(code, row.entry);
      }
      const std::string end = row.end;
      if (end == "Enter") QTest::keyClick(code, Qt::Key_Return);
      if (end == "Tab") QTest::keyClick(code, Qt::Key_Tab);
      EXPECT_TRUE(end != "Tab" || (code->selectedText() == "12000" && code->hasFocus()));
      if (end.starts_with("cmd") || end.starts_with("opt")) Press(dialog, row.end);
      if (end.starts_with("opt")) Press(dialog, "cmdOK");
      EXPECT_EQ(dialog.isVisible(), end == "Tab");
    });
    EXPECT_EQ(Cell(2, column), row.result);
    EXPECT_EQ(messages.Taken(), ErrorMessage(row.error));
  }
}

TEST_F(DialogTest, GroupCall) {
  const std::tuple<const char*, bool, const char*, const char*, const char*, const char*, const char*> cases[] = {
      {"tone A", true, "OFF", "OFF", "Tone A", "cmdOK", "Tone A"},
      {"not in the list", true, "Tone #7", "", "", "cmdOK", "Tone #7"},
      {"digits", false, "OFF", "OFF", "First 3", "cmdOK", "5T 3"},
      {"cancelled", false, "5T 1", "First 1", "First 2", "cmdCancel", "5T 1"}};
  for (const auto& [name, tts, cell, before, picked, button, result] : cases) {
    SCOPED_TRACE(name);
    Ask(tts, 14, cell,
        [number = tts ? "cboTwoSig(0)" : "cboTwoSig(1)", shown = before, pick = picked, end = button](QDialog& dialog) {
          auto* const list = dialog.findChild<QComboBox*>(number);
          EXPECT_TRUE(list->isEnabled() && list->currentText() == shown);
          if (*pick != 0) list->setCurrentText(pick);
          Press(dialog, end);
        });
    EXPECT_EQ(Cell(2, 14), result);
  }
}

} // namespace
} // namespace mr4500x
