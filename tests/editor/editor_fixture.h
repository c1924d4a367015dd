// The panel in an active window, filled with a new configuration, beside a button to move the focus to. Message boxes
// are answered by script.
#pragma once

#include "editor_panel.h"
#include "rows.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <stdexcept>

namespace mr4500x {

using Lines = std::vector<std::string>;

// "" for no message at all.
inline Lines ErrorMessage(std::string_view text) {
  if (text.empty()) return {};
  return {"!|Error|" + std::string(text)};
}

struct ScriptedMessages : MessageView {
  Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) override {
    shown.push_back((icon == MessageIcon::Exclamation ? "!|" : "|") + std::string(title) + "|" + std::string(text) +
                    (buttons == MessageButtons::YesNo ? "|YN" : ""));
    if (whileShown) whileShown();
    return answer;
  }
  Lines Taken() { return std::exchange(shown, {}); }

  Lines shown;
  Answer answer = Answer::Ok;
  std::function<void()> whileShown;
};

struct EditorTest : testing::Test {
  explicit EditorTest(char separator = '.') : texts(BuildFieldTexts(separator)) {
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(&panel);
    layout->addWidget(elsewhere);
    panel.FillReset({2026, 1, 2, 3, 4, 5});
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  template<class Control>
  Control& Get(const QString& objectName) {
    auto* const control = panel.findChild<Control*>(objectName);
    if (control == nullptr) throw std::runtime_error(objectName.toStdString());
    return *control;
  }
  QLineEdit& Box(const char* objectName) { return Get<QLineEdit>(objectName); }
  QComboBox& List(const char* objectName) { return Get<QComboBox>(objectName); }
  std::string Text(const char* objectName) {
    QLineEdit& box = Box(objectName);
    return box.text().toStdString() + (box.isEnabled() ? "" : " disabled");
  }

  // Enters the box and replaces what it holds by what the keys make of it.
  QLineEdit& Type(const char* objectName, const char* keys) {
    QLineEdit& box = Box(objectName);
    box.setFocus(Qt::TabFocusReason);
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Backspace);
    QTest::keyClicks(&box, QLatin1String(keys));
    return box;
  }
  void GoElsewhere() const { elsewhere->setFocus(Qt::TabFocusReason); }

  // Opens the list and picks an item, as with the mouse.
  void Pick(const char* objectName, int position) {
    QComboBox& list = List(objectName);
    list.setFocus();
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(position, 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
  }

  // Rows and columns of a table count from 0 below its headings.
  static std::string Cell(const QTableWidget& table, int row, int column) {
    return table.item(row, column)->text().toStdString();
  }
  static void Click(const QTableWidget& table, int row, int column, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(table.viewport(), button, {}, table.visualItemRect(table.item(row, column)).center());
  }

  RadioImage image;
  FieldTexts texts;
  ScriptedMessages messages;
  QWidget window;
  QPushButton* elsewhere = new QPushButton(QStringLiteral("elsewhere"));
  EditorPanel& panel = *new EditorPanel(image, texts, messages);
  QTableWidget& ttsTable = Get<QTableWidget>("gridTTS");
  QSignalSpy changed{&panel, &EditorPanel::Changed};
};

// All channels are in use. Rows and columns count as the channel grid shows them: row 0 and column 0 hold the labels.
struct ChannelTest : EditorTest {
  explicit ChannelTest(char separator = '.') : EditorTest(separator) {
    for (std::size_t i = 0; i < ChannelCount; ++i)
      image.ChannelBlock(i, 0) |= 0x80;
    panel.Fill();
    grid.setFocus();
    changed.clear();
  }
  QTableWidgetItem& Item(int row, int column) const { return *grid.item(row - 1, column - 1); }
  std::string Cell(int row, int column) const { return Item(row, column).text().toStdString(); }
  void SetCell(int row, int column, const std::string& text) const { Item(row, column).setText(text.c_str()); }
  QPoint Centre(int row, int column) const { return grid.visualItemRect(&Item(row, column)).center(); }
  void Click(int row, int column, Qt::MouseButton button = Qt::LeftButton) const {
    QTest::mouseClick(grid.viewport(), button, {}, Centre(row, column));
  }

  QTableWidget& grid = Get<QTableWidget>("gridChannel");
  QLineEdit& frequency = Box("txtChFreq");
  QComboBox& tone = List("cboCTCDCS");
};

} // namespace mr4500x
