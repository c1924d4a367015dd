#include "owner_window.h"

#include <QApplication>
#include <QMainWindow>

namespace mr4500x {

QWidget* OwnerWindow() {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  return nullptr;
}

} // namespace mr4500x
