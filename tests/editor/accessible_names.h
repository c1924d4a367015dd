// What a screen reader finds in a window.
#pragma once

#include <QAccessible>
#include <QWidget>

#include <string>

namespace mr4500x {

// A line for each control of the window that can have the focus, but has no name or no role.
inline std::string NamelessControls(QWidget* window) {
  std::string nameless;
  for (QWidget* const control : window->findChildren<QWidget*>()) {
    const bool isInner = control->objectName().startsWith("qt_"); // of a spin box or the like
    if (control->focusPolicy() == Qt::NoFocus || control->window() != window || isInner) continue;
    auto* const reader = QAccessible::queryAccessibleInterface(control);
    if (reader == nullptr || reader->role() == QAccessible::NoRole || reader->text(QAccessible::Name).isEmpty())
      nameless += control->metaObject()->className() + (' ' + control->objectName().toStdString()) + '\n';
  }
  return nameless;
}

} // namespace mr4500x
