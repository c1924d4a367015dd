// Waits for the next modal dialog and handles it.
#pragma once

#include <QApplication>
#include <QTimer>

#include <functional>

namespace mr4500x {

inline void WhenDialogOpens(const std::function<void(QWidget*)>& act) {
  auto* const look = new QTimer(qApp);
  look->callOnTimeout([look, act] {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr) return;
    look->stop();
    look->deleteLater();
    act(dialog);
  });
  look->start(1);
}

} // namespace mr4500x
