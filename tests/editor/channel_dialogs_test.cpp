// The selective-call and group-call dialogs, as the grid opens them.
#include "editor_fixture.h"

#include <QDialog>
#include <QTimer>

#include <map>

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
  const std::map<std::string, int> columns = {{"receive", 4}, {"transmit", 10}, {"group", 14}};
  std::map<std::string, int> lefts;
  for (const Row& row :
       RowsOf(CASES "dialog_cells.txt",
              "[^:]+: (TTS|5 Tone), (\\w+) (.*?), \\[(.*)\\] \\[(.*)\\] (\\S+) -> (.*?)(?: \\| (.*))?")) {
    const auto& [line, mode, field, cell, option, entry, end, result, error] =
        std::tie(row[0], row[1], row[2], row[3], row[4], row[5], row[6], row[7], row[8]);
    SCOPED_TRACE(line);
    List("cboRadio(0)").setCurrentText(QString::fromStdString(mode));
    const std::string name = field != "group" ? "cboTwoSig" : mode == "TTS" ? "cboTwoSig(0)" : "cboTwoSig(1)";
    Ask(columns.at(field), cell.c_str(),
        [&, &field = field, &option = option, &entry = entry, &end = end](QDialog& dialog) {
          auto* const list = dialog.findChild<QComboBox*>(name.c_str());
          auto* const code = dialog.findChild<QLineEdit*>("txtFiveSig");
          lefts[field] = dialog.x();
          if (!option.empty()) Press(dialog, option);
          if (!entry.empty() && field != "transmit") {
            EXPECT_TRUE(list->isEnabled());
            list->setCurrentText(QString::fromStdString(entry));
          } else if (!entry.empty()) {
            code->setFocus();
            code->selectAll();
            QTest::keyClicks(code, QString::fromStdString(entry));
          }
          if (end == "Enter") QTest::keyClick(code, Qt::Key_Return);
          if (end == "Tab") QTest::keyClick(code, Qt::Key_Tab);
          EXPECT_TRUE(end != "Tab" || (code->selectedText() == "12000" && code->hasFocus()));
          if (end.starts_with("cmd") || end.starts_with("opt")) Press(dialog, end);
          if (end.starts_with("opt")) Press(dialog, "cmdOK");
          EXPECT_EQ(dialog.isVisible(), end == "Tab");
        });
    EXPECT_EQ(Cell(2, columns.at(field)), result);
    EXPECT_EQ(messages.Taken(), ErrorMessage(error));
  }
  EXPECT_LT(lefts["receive"], lefts["transmit"]) << "near its column";
}

} // namespace
} // namespace mr4500x
