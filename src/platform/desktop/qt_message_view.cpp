#include "qt_message_view.h"

#include "owner_window.h"
#include "transfer_guard.h"

#include <QMessageBox>
#include <QPushButton>

#include <array>
#include <span>

namespace mr4500x {
namespace {

struct BoxButton {
  QMessageBox::StandardButton button;
  const char* name;
  Answer answer;
};

constexpr std::array OkButton = {BoxButton{QMessageBox::Ok, "cmdOk", Answer::Ok}};
constexpr std::array QuestionButtons = {
    BoxButton{QMessageBox::Yes, "cmdYes", Answer::Yes},
    BoxButton{QMessageBox::No, "cmdNo", Answer::No},
    BoxButton{QMessageBox::Cancel, "cmdCancel", Answer::Cancel},
};

std::span<const BoxButton> ButtonsOf(MessageButtons buttons) {
  if (buttons == MessageButtons::Ok) return OkButton;
  return std::span(QuestionButtons).first(buttons == MessageButtons::YesNo ? 2 : 3);
}

QMessageBox::Icon IconOf(MessageIcon icon) {
  if (icon == MessageIcon::Information) return QMessageBox::Information;
  if (icon == MessageIcon::Exclamation) return QMessageBox::Warning;
  return icon == MessageIcon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon;
}

} // namespace

Answer QtMessageView::Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) {
  const TransferPause pause(m_input);
  QMessageBox box(OwnerWindow());
  box.setObjectName(QStringLiteral("messageBox"));
  box.setIcon(IconOf(icon));
  box.setWindowTitle(QString::fromUtf8(title));
  box.setTextFormat(Qt::PlainText); // paths are not markup
  box.setText(QString::fromUtf8(text));
  const std::span<const BoxButton> offered = ButtonsOf(buttons);
  for (const BoxButton& button : offered)
    box.addButton(button.button)->setObjectName(QLatin1String(button.name));
  box.setDefaultButton(offered.front().button);
  const int pressed = box.exec();
  for (const BoxButton& button : offered)
    if (button.button == pressed) return button.answer;
  return offered.back().answer; // closed without a button
}

} // namespace mr4500x
