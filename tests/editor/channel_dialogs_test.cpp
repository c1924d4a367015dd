// The selective-call and group-call dialogs, as the grid opens them.
#include "editor_fixture.h"

#include <QDialog>
#include <QTimer>

namespace mr4500x {
namespace {

struct DialogTest : ChannelTest {
  // Puts the text into the cell, clicks the cell and works in the dialog that opens.
  void Ask(int column, const char* cell, const std::function<void(QDialog&)>& work) {
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
  static void Press(const QDialog& dialog, const std::string& button) {
    auto* const control = dialog.findChild<QAbstractButton*>(button.c_str());
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
  }
};

TEST_F(DialogTest, SetTheCell) {
  const char* const notFive = "The number of 5 Tone must be five!";
  constexpr int rxCall = 4, txCall = 10, group = 14;
  const struct {
    const char* name;
    bool tts;
    int column;
    const char *cell, *option, *entry; // pressed, then typed or picked from the list
    std::string end;                   // the button, or the key in the code
    const char *result, *error;        // the cell afterwards; the message
  } cases[] = {{"chosen", true, rxCall, "OFF", "optSig(1)", "", "cmdOK", "TTS 1", ""},
               {"not in the list", true, rxCall, "TTS 15", "", "", "cmdOK", "TTS 15", ""},
               {"another entry", true, rxCall, "TTS 3", "", "8", "cmdOK", "TTS 8", ""},
               {"off", true, rxCall, "TTS 3", "optSig(0)", "", "cmdOK", "OFF", ""},
               {"group tone", true, group, "OFF", "", "Tone A", "cmdOK", "Tone A", ""},
               {"group tone not in the list", true, group, "Tone #7", "", "", "cmdOK", "Tone #7", ""},
               {"code with a letter", false, txCall, "OFF", "optSig(2)", "9x8765", "Enter", "5T 98765", ""},
               {"short code", false, txCall, "OFF", "optSig(2)", "12", "cmdOK", "5T 12000", notFive},
               {"off instead of a short code", false, txCall, "5T 01234", "", "12", "optSig(0)", "OFF", ""},
               {"cancelled short code", false, txCall, "5T 01234", "", "12", "cmdCancel", "5T 01234", ""},
               {"short code, next field", false, txCall, "5T 01234", "", "12", "Tab", "5T 01234", notFive},
               {"letter in the radio", false, txCall, "5T 12A45", "", "", "cmdOK", "5T 12000", "Invalide 5 Tone!"},
               {"group digits", false, group, "OFF", "", "First 3", "cmdOK", "5T 3", ""},
               {"group digits as they were", false, group, "5T 7", "", "", "cmdOK", "5T 7", ""}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    List("cboRadio(0)").setCurrentIndex(row.tts ? 0 : 1);
    Ask(row.column, row.cell, [&](QDialog& dialog) {
      auto* const list = dialog.findChild<QComboBox*>(row.column != group ? "cboTwoSig"
                                                      : row.tts           ? "cboTwoSig(0)"
                                                                          : "cboTwoSig(1)");
      auto* const code = dialog.findChild<QLineEdit*>("txtFiveSig");
      if (*row.option != 0) Press(dialog, row.option);
      if (*row.entry != 0 && row.column != txCall) {
        EXPECT_TRUE(list->isEnabled());
        list->setCurrentText(row.entry);
      } else if (*row.entry != 0) {
        code->setFocus();
        code->selectAll();
        QTest::keyClicks(code, row.entry);
      }
      if (row.end == "Enter") QTest::keyClick(code, Qt::Key_Return);
      if (row.end == "Tab") QTest::keyClick(code, Qt::Key_Tab);
      EXPECT_TRUE(row.end != "Tab" || (code->selectedText() == "12000" && code->hasFocus()));
      if (row.end.starts_with("cmd") || row.end.starts_with("opt")) Press(dialog, row.end);
      if (row.end.starts_with("opt")) Press(dialog, "cmdOK");
      EXPECT_EQ(dialog.isVisible(), row.end == "Tab");
    });
    EXPECT_EQ(Cell(2, row.column), row.result);
    EXPECT_EQ(messages.Taken(), ErrorMessage(row.error));
  }
}

} // namespace
} // namespace mr4500x
