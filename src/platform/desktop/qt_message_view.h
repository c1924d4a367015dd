// Message boxes of the desktop.
#pragma once

#include "message_view.h"

namespace mr4500x {

// A box is named "messageBox", its buttons "cmdOk", "cmdYes", "cmdNo" and "cmdCancel"; the first is the default.
// During a transfer the user's input counts again while a box is open.
class UserInput;

class QtMessageView final : public MessageView {
public:
  explicit QtMessageView(UserInput& input) : m_input(input) {}

  Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) override;

private:
  UserInput& m_input;
};

} // namespace mr4500x
