#include "qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace mr4500x {

std::string QtClipboard::Text() {
  return QGuiApplication::clipboard()->text().toStdString();
}

void QtClipboard::SetText(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

} // namespace mr4500x
