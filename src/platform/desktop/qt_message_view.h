#pragma once

#include "message_view.h"

namespace mr4500x {

class UserInput;

// Boxes are named "messageBox", their buttons "cmdOk", "cmdYes", "cmdNo" and "cmdCancel"; the first is the default.
// An open box releases the input that a transfer holds.
class QtMessageView final : public MessageView {
public:
  explicit QtMessageView(UserInput& input) : m_input(input) {}

  Answer Show(MessageIcon icon, std::string_view title, std::string_view text, MessageButtons buttons) override;

private:
  UserInput& m_input;
};

} // namespace mr4500x
