// A frame in an active window beside a button to move the focus to, and message boxes that are answered by script.
#pragma once

#include "configuration.h"
#include "editor_fakes.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace mr4500x {

// The frame belongs to the window.
class FrameWindow {
public:
  explicit FrameWindow(QWidget* frame) : m_elsewhere(new QPushButton(QStringLiteral("elsewhere"))) {
    auto* const layout = new QVBoxLayout(&m_window);
    layout->addWidget(frame);
    layout->addWidget(m_elsewhere);
    m_window.show();
    m_window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
  }

  template<class Control>
  Control& Get(const char* objectName) {
    auto* const control = m_window.findChild<Control*>(QLatin1String(objectName));
    if (control == nullptr) throw std::runtime_error(objectName);
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
  QWidget m_window;
  QPushButton* m_elsewhere;
};

} // namespace mr4500x
