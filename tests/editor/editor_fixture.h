// A frame in an active window beside a button to move the focus to, and message boxes that are answered by script.
#pragma once

#include "message_view.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <stdexcept>

namespace mr4500x {

struct ShownMessage {
  MessageIcon icon;
  std::string title, text;
  MessageButtons buttons;
  bool operator==(const ShownMessage&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const ShownMessage& message) {
    return out << message.title << ": " << message.text;
  }
};
using ShownMessages = std::vector<ShownMessage>;

// "" for no message at all.
inline ShownMessages ErrorMessage(std::string_view text) {
  if (text.empty()) return {};
  return {{MessageIcon::Exclamation, "Error", std::string(text), MessageButtons::Ok}};
}

struct ScriptedMessages : MessageView {
  Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) override {
    shown.push_back({icon, std::string(title), std::string(text), buttons});
    if (whileShown) whileShown();
    return answer;
  }
  ShownMessages Taken() { return std::exchange(shown, {}); }

  ShownMessages shown;
  Answer answer = Answer::Ok;
  std::function<void()> whileShown;
};

// The frame belongs to the window.
class FrameWindow : public QWidget {
public:
  explicit FrameWindow(QWidget* frame) {
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(m_elsewhere);
    show();
    activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(this));
  }

  template<class Control>
  Control& Get(const QString& objectName) {
    auto* const control = findChild<Control*>(objectName);
    if (control == nullptr) throw std::runtime_error(objectName.toStdString());
    return *control;
  }
  QLineEdit& Box(const char* objectName) { return Get<QLineEdit>(objectName); }
  QComboBox& List(const char* objectName) { return Get<QComboBox>(objectName); }
  std::string Text(const char* objectName) { return Box(objectName).text().toStdString(); }

  // Enters the box and replaces what it holds by what the keys make of it.
  QLineEdit& Type(const char* objectName, const char* keys) {
    QLineEdit& box = Box(objectName);
    box.setFocus(Qt::TabFocusReason);
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Backspace);
    QTest::keyClicks(&box, QLatin1String(keys));
    return box;
  }
  void GoElsewhere() { m_elsewhere->setFocus(Qt::TabFocusReason); }

  // Opens the list and picks an item, as with the mouse.
  void Pick(const char* objectName, int position) {
    QComboBox& list = List(objectName);
    list.setFocus();
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(position, 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
  }

private:
  QPushButton* m_elsewhere = new QPushButton(QStringLiteral("elsewhere"));
};

} // namespace mr4500x
